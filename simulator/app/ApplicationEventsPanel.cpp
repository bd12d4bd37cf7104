#include "simulator/app/ApplicationEventsPanel.h"

#include "simulator/app/FormRow.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/app/StateNames.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace simulator {

namespace {

/// A JSON value when the text is one, otherwise the text itself.
QVariant readValue(const QString &text)
{
    // Only arrays and objects make a document.
    const QJsonDocument json = QJsonDocument::fromJson(QStringLiteral("[%1]").arg(text).toUtf8());
    if (json.isArray() && json.array().size() == 1)
        return json.array().at(0).toVariant();
    return text;
}

} // namespace

ApplicationEventsPanel::ApplicationEventsPanel(RobotScreen *screen, QWidget *parent)
    : QWidget(parent)
    , m_screen(screen)
    , m_custom(new QLineEdit(QStringLiteral("{\"offer\": \"coffee\", \"table\": 7}")))
    , m_mistake(new QLabel)
    , m_name(new QLineEdit(QStringLiteral("badge")))
    , m_status(formChoice(StateNames::finishes()))
    , m_result(new QLineEdit(QStringLiteral("{\"printed\": true}")))
    , m_close(new QCheckBox(tr("close")))
{
    m_mistake->setStyleSheet(QStringLiteral("color: #b00020"));
    m_name->setMaximumWidth(90);
    m_result->setToolTip(tr("What the application returns: JSON, or any text"));

    QPushButton *custom = formButton(tr("Send"));
    QPushButton *finish = formButton(tr("Ends"));
    QPushButton *hidden = formButton(tr("Page hidden"));
    QPushButton *settings = formButton(tr("Settings changed"));

    auto *form = new QFormLayout(this);
    form->addRow(tr("Custom event"), formRow({m_custom, custom}));
    form->addRow(QString(), m_mistake);
    form->addRow(tr("Application"), formRow({m_status, m_name, finish}));
    form->addRow(tr("Result"), m_result);
    form->addRow(tr("Screen"), formRow({m_close, hidden, settings}));

    connect(custom, &QPushButton::clicked, this, &ApplicationEventsPanel::onCustomEvent);
    connect(m_custom, &QLineEdit::returnPressed, this, &ApplicationEventsPanel::onCustomEvent);
    connect(m_custom, &QLineEdit::textChanged, m_mistake, &QLabel::clear);
    connect(finish, &QPushButton::clicked, this, &ApplicationEventsPanel::onFinish);
    connect(hidden, &QPushButton::clicked, m_screen,
            [this] { m_screen->pageHidden(m_close->isChecked()); });
    connect(settings, &QPushButton::clicked, m_screen, &RobotScreen::updateSettings);
}

void ApplicationEventsPanel::onCustomEvent()
{
    QJsonParseError mistake;
    const QJsonDocument json = QJsonDocument::fromJson(m_custom->text().toUtf8(), &mistake);
    if (json.isObject())
        m_screen->customEvent(json.object().toVariantMap());
    else if (mistake.error != QJsonParseError::NoError)
        m_mistake->setText(
            tr("Not sent: %1 (at %2)").arg(mistake.errorString()).arg(mistake.offset));
    else
        m_mistake->setText(tr("Not sent: it has to be a JSON object, {…}"));
}

void ApplicationEventsPanel::onFinish()
{
    const auto status = static_cast<RetData::FinishStatus>(m_status->currentIndex());
    m_screen->applicationFinish(m_name->text(), status, readValue(m_result->text()));
}

} // namespace simulator
