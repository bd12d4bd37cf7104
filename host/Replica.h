#pragma once

#include "host/Action.h"
#include "host/Animation.h"
#include "host/Export.h"
#include "host/ID.h"

#include <QList>
#include <QString>
#include <QUrl>

/// One utterance of the robot, as the dialog engine chooses it.
class PANOREL_HOST_EXPORT Replica
{
public:
    /// Kind of replica that is asked for. Travels as its integer value; 0 is a plain line.
    enum Type : int {
        Plain = 0,
        Greeting = 1,
        Farewell = 2,
        Extra = 3,
        Clarification = 4,
    };

    Replica() = default;

    ID id() const;
    void setId(const ID &id);

    /// The answer set that is expected after this replica.
    ID anchor() const;
    void setAnchor(const ID &anchor);

    ID category() const;
    void setCategory(const ID &category);

    /// What the robot speaks.
    QString text() const;
    void setText(const QString &text);

    /// What the screen shows instead of the spoken text.
    QString screenText() const;
    void setScreenText(const QString &screenText);

    /// What the screen shows or plays beside the text; invalid when there is nothing.
    QUrl url() const;
    /// Parses @p url in Qt's tolerant mode; a text that is no URL gives an invalid one.
    void setUrl(const QString &url);

    QList<Action> actions() const;
    /// Takes one action per piece between commas; the empty text gives none.
    void setActions(const QString &actions);

    Animation animation() const;
    void setAnimation(const Animation &animation);

    Type type() const;
    void setType(const Type &type);

private:
    ID m_id;
    ID m_anchor;
    ID m_category;
    QString m_text;
    QString m_screenText;
    QUrl m_url;
    QList<Action> m_actions;
    Animation m_animation = AnimationNone;
    Type m_type = Plain;
};
