#pragma once

class QLabel;
class QWidget;

/// A heading in bold over a page of the association wizard.
QLabel *titleLabel(const char *controlName, const char *text, QWidget *parent);
/// A caption above `buddy`, whose mnemonic moves the focus to it.
QLabel *captionLabel(const char *controlName, const char *text, QWidget *buddy, QWidget *parent);
