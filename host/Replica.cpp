#include "host/Replica.h"

#include <QStringList>

ID Replica::id() const { return m_id; }

void Replica::setId(const ID &id) { m_id = id; }

ID Replica::anchor() const { return m_anchor; }

void Replica::setAnchor(const ID &anchor) { m_anchor = anchor; }

ID Replica::category() const { return m_category; }

void Replica::setCategory(const ID &category) { m_category = category; }

QString Replica::text() const { return m_text; }

void Replica::setText(const QString &text) { m_text = text; }

QString Replica::screenText() const { return m_screenText; }

void Replica::setScreenText(const QString &screenText) { m_screenText = screenText; }

QUrl Replica::url() const { return m_url; }

void Replica::setUrl(const QString &url) { m_url = QUrl(url); }

QList<Action> Replica::actions() const { return m_actions; }

void Replica::setActions(const QString &actions)
{
    m_actions.clear();
    if (actions.isEmpty())
        return;
    const QStringList pieces = actions.split(QLatin1Char(','));
    for (const QString &piece : pieces)
        m_actions.append(Action(piece));
}

Animation Replica::animation() const { return m_animation; }

void Replica::setAnimation(const Animation &animation) { m_animation = animation; }

Replica::Type Replica::type() const { return m_type; }

void Replica::setType(const Type &type) { m_type = type; }
