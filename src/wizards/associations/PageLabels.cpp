#include "wizards/associations/PageLabels.h"

#include <QLabel>

QLabel *titleLabel(const char *controlName, const char *text, QWidget *parent)
{
    auto *title = new QLabel(QString::fromUtf8(text), parent);
    title->setObjectName(controlName);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    return title;
}

QLabel *captionLabel(const char *controlName, const char *text, QWidget *buddy, QWidget *parent)
{
    auto *caption = new QLabel(QString::fromUtf8(text), parent);
    caption->setObjectName(controlName);
    caption->setBuddy(buddy);
    return caption;
}
