#include "simulator/app/KeyboardPanel.h"

#include "simulator/app/ElidedLabel.h"
#include "simulator/app/FormRow.h"
#include "simulator/core/SimulatedKeyboard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace simulator {

KeyboardPanel::KeyboardPanel(SimulatedKeyboard *keyboard, QWidget *parent)
    : QWidget(parent)
    , m_keyboard(keyboard)
    , m_state(new ElidedLabel)
    , m_shown(new QCheckBox(tr("Shown")))
    , m_locale(new QComboBox)
{
    m_state->setObjectName(QStringLiteral("state"));
    m_locale->setObjectName(QStringLiteral("locale"));
    m_locale->setEditable(true);
    m_locale->setInsertPolicy(QComboBox::NoInsert);
    m_locale->setCompleter(nullptr); // what is typed is meant
    m_locale->addItems({QStringLiteral("en_GB"), QStringLiteral("de_DE"), QStringLiteral("fr_FR"),
                        QStringLiteral("ru_RU"), QStringLiteral("ar_EG"), QStringLiteral("zh_CN")});
    QPushButton *set = formButton(tr("Set"));

    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(6);
    form->setVerticalSpacing(4);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("State"), formRow({m_state, m_shown}));
    form->addRow(tr("Locale"), formRow({m_locale, set}));

    connect(m_shown, &QCheckBox::toggled, m_keyboard, &IKeyboard::setVisible);
    connect(set, &QPushButton::clicked, this, &KeyboardPanel::setLocale);
    connect(m_locale, QOverload<int>::of(&QComboBox::activated), this, &KeyboardPanel::setLocale);
    connect(m_locale->lineEdit(), &QLineEdit::returnPressed, this, &KeyboardPanel::setLocale);
    connect(m_keyboard, &SimulatedKeyboard::visibleChanged, this, &KeyboardPanel::showState);
    connect(m_keyboard, &SimulatedKeyboard::localeChanged, this, &KeyboardPanel::showState);
    showState();
}

void KeyboardPanel::showState()
{
    const QString visible = m_keyboard->isVisible() ? tr("shown") : tr("hidden");
    m_state->setWholeText(QStringLiteral("%1, %2").arg(visible, m_keyboard->locale()));
    m_shown->setChecked(m_keyboard->isVisible());
    m_locale->setEditText(m_keyboard->locale());
}

void KeyboardPanel::setLocale() { m_keyboard->setLocale(m_locale->currentText().trimmed()); }

} // namespace simulator
