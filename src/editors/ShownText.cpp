#include "editors/ShownText.h"

#include <QLineEdit>

QLineEdit *shownText(const char *controlName, QWidget *parent)
{
    auto *text = new QLineEdit(parent);
    text->setObjectName(controlName);
    text->setReadOnly(true);
    return text;
}
