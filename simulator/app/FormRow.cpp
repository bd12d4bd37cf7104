#include "simulator/app/FormRow.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStringList>

namespace simulator {

QHBoxLayout *formRow(const QList<QWidget *> &widgets)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    for (int i = 0; i < widgets.size(); ++i)
        row->addWidget(widgets.at(i), i == 0 ? 1 : 0);
    return row;
}

QPushButton *formButton(const QString &text)
{
    auto *button = new QPushButton(text);
    button->setAutoDefault(false);
    return button;
}

QComboBox *formChoice(const QStringList &names)
{
    auto *choice = new QComboBox;
    for (int value = 0; value < names.size(); ++value)
        choice->addItem(QStringLiteral("%1 – %2").arg(value).arg(names.at(value)));
    return choice;
}

} // namespace simulator
