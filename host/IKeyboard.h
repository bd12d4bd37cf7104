#pragma once

#include "host/Export.h"

#include <QObject>
#include <QString>

/// The robot's on-screen keyboard.
class PANOREL_HOST_EXPORT IKeyboard : public QObject
{
    Q_OBJECT

public:
    explicit IKeyboard(QObject *parent = nullptr);
    ~IKeyboard() override;

    /// The layout's locale, such as "en_GB". Every keyboard overrides it; this one gives "".
    virtual QString locale();
    /// Every keyboard overrides it; this one does nothing.
    virtual void setLocale(const QString &locale);

    /// Whether the user sees the keyboard now.
    virtual bool isVisible() = 0;
    /// Shows or hides the keyboard; does nothing when it is so already.
    virtual void setVisible(const bool &visible) = 0;

    /// Same as setVisible(true).
    void show();
    /// Same as setVisible(false).
    void hide();
};
