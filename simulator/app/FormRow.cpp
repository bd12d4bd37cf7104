#include "simulator/app/FormRow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSpinBox>
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

QSpinBox *formNumber(int least, int most)
{
    auto *number = new QSpinBox;
    number->setRange(least, most);
    number->setKeyboardTracking(false); // the "1" of "12" is no number yet
    return number;
}

QCheckBox *formPlug()
{
    auto *plug = new QCheckBox(QCoreApplication::translate("simulator::FormRow", "Plugged in"));
    plug->setChecked(true);
    return plug;
}

QGridLayout *formGrid(QWidget *panel)
{
    auto *grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    return grid;
}

QComboBox *formChoice(const QStringList &names)
{
    auto *choice = new QComboBox;
    for (int value = 0; value < names.size(); ++value)
        choice->addItem(QStringLiteral("%1 – %2").arg(value).arg(names.at(value)));
    return choice;
}

} // namespace simulator
