#pragma once

#include <QObject>

namespace simulator {

/// The human operator far away: the robot calls, the operator answers and may take over control.
/// GUI thread.
class OperatorDesk : public QObject
{
    Q_OBJECT

public:
    /// The codes with which an operator answers a call.
    enum Response : unsigned char {
        Queued = 0,
        Accepted = 1,
        Busy = 2,
        Absent = 3,
    };

    explicit OperatorDesk(QObject *parent = nullptr);

    /// True calls the operator, false withdraws the call and ends the operator's control.
    void setCalled(const bool &called);
    bool isCalled() const;

    /// The operator answers, with a Response or any other code.
    void respond(unsigned char code);

    /// The operator takes over control, or hands it back.
    void setControl(bool control);
    bool hasControl() const;

Q_SIGNALS:
    void callChanged(bool called);
    void responded(unsigned char code);
    void controlChanged(bool control);

private:
    bool m_called = false;
    bool m_control = false;
};

} // namespace simulator
