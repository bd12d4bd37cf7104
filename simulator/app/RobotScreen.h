#pragma once

#include "panorel/Panorel.h"

#include <QHash>

class QWebEngineView;

namespace simulator {

class MessageReporter;

/// The robot's screen, with a bus that tells what it delivers. Its page may use camera and microphone,
/// and nothing else that a web engine asks for, such as the position.
class RobotScreen : public panorel::Panorel
{
    Q_OBJECT

public:
    explicit RobotScreen(QWidget *parent = nullptr);

    /// Both live as long as the screen.
    MessageReporter *reporter() const;
    QWebEngineView *view() const;

    /// What the page reaches through the web channel, by name, for another road to a page.
    QHash<QString, QObject *> pageObjects() const;

Q_SIGNALS:
    void resized(const QSize &size);

protected:
    void resizeEvent(QResizeEvent *event) override;
};

} // namespace simulator
