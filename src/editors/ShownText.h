#pragma once

class QLineEdit;
class QWidget;

/// A read-only text box named `controlName`, for a value a confirmation page shows.
QLineEdit *shownText(const char *controlName, QWidget *parent);
