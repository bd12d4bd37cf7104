#pragma once

#include <QWidget>

class QComboBox;
class QPushButton;

namespace simulator {

class ElidedLabel;

/// The telephone network: what becomes of the next call, and what the called party does.
class TelephonePanel : public QWidget
{
    Q_OBJECT

public:
    explicit TelephonePanel(QWidget *parent = nullptr);

private:
    QWidget *createKeys();
    void showState();

    ElidedLabel *m_state;
    ElidedLabel *m_number;
    QComboBox *m_outcome;
    QPushButton *m_hangUp;
    QWidget *m_keys;
};

} // namespace simulator
