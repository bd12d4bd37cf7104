#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;
class QTableWidget;
class QTableWidgetItem;

namespace simulator {

class SettingsStore;
class SimulatedPlugin;

/// The robot's settings, one store at a time: a person changes, adds and removes them.
class SettingsPanel : public QWidget
{
    Q_OBJECT

public:
    /// @p plugin is not owned and outlives the panel.
    explicit SettingsPanel(SimulatedPlugin *plugin, QWidget *parent = nullptr);

private:
    SettingsStore *store() const;
    void showStore();
    void take(const QTableWidgetItem *item);
    void add();
    void removeChosen();

    QList<SettingsStore *> m_stores;
    QComboBox *m_store;
    QTableWidget *m_table;
    QLineEdit *m_key;
    QLineEdit *m_value;
};

} // namespace simulator
