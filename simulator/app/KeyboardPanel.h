#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;

namespace simulator {

class ElidedLabel;
class SimulatedKeyboard;

/// The on-screen keyboard: whether it shows, and its layout.
class KeyboardPanel : public QWidget
{
    Q_OBJECT

public:
    /// @p keyboard is not owned and outlives the panel.
    explicit KeyboardPanel(SimulatedKeyboard *keyboard, QWidget *parent = nullptr);

private:
    void showState();
    void setLocale();

    SimulatedKeyboard *m_keyboard;
    ElidedLabel *m_state;
    QCheckBox *m_shown;
    QComboBox *m_locale;
};

} // namespace simulator
