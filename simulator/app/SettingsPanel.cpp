#include "simulator/app/SettingsPanel.h"

#include "simulator/app/FormRow.h"
#include "simulator/core/SettingsStore.h"
#include "simulator/core/SimulatedPlugin.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace simulator {

namespace {

enum Column { KeyColumn, ValueColumn, ColumnCount };

} // namespace

SettingsPanel::SettingsPanel(SimulatedPlugin *plugin, QWidget *parent)
    : QWidget(parent)
    , m_stores(
          {&plugin->applicationSettings(), &plugin->systemSettings(), &plugin->emailSettings()})
    , m_store(new QComboBox)
    , m_table(new QTableWidget(0, ColumnCount))
    , m_key(new QLineEdit)
    , m_value(new QLineEdit)
{
    m_store->setObjectName(QStringLiteral("store"));
    m_store->addItems({tr("Application"), tr("System"), tr("Mail account")});
    m_table->setObjectName(QStringLiteral("settings"));
    m_table->setToolTip(tr("Text in quotes is a text, whatever it looks like"));
    m_table->horizontalHeader()->hide();
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_table->verticalHeader()->hide();
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_key->setObjectName(QStringLiteral("key"));
    m_key->setPlaceholderText(tr("/group/name"));
    m_value->setObjectName(QStringLiteral("value"));
    m_value->setPlaceholderText(tr("value"));
    QPushButton *adds = formButton(tr("Set"));
    QPushButton *removes = formButton(tr("Remove"));

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addLayout(formRow({m_store, removes}));
    column->addWidget(m_table, 1);
    QHBoxLayout *row = formRow({m_key, m_value, adds});
    row->setStretch(0, 1);
    row->setStretch(1, 1);
    column->addLayout(row);

    connect(m_store, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &SettingsPanel::showStore);
    connect(m_table, &QTableWidget::itemChanged, this, &SettingsPanel::take);
    connect(m_value, &QLineEdit::returnPressed, this, &SettingsPanel::add);
    connect(adds, &QPushButton::clicked, this, &SettingsPanel::add);
    connect(removes, &QPushButton::clicked, this, &SettingsPanel::removeChosen);
    // Later: it may be an item of the table that changed it.
    for (const SettingsStore *one : qAsConst(m_stores))
        connect(one, &SettingsStore::changed, this, &SettingsPanel::showStore,
                Qt::QueuedConnection);
    showStore();
}

SettingsStore *SettingsPanel::store() const { return m_stores.at(m_store->currentIndex()); }

void SettingsPanel::showStore()
{
    const QSignalBlocker blocker(m_table);
    const QStringList keys = store()->keys();
    m_table->setRowCount(keys.size());
    for (int row = 0; row < keys.size(); ++row) {
        auto *key = new QTableWidgetItem(keys.at(row));
        key->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        m_table->setItem(row, KeyColumn, key);
        m_table->setItem(row, ValueColumn,
                         new QTableWidgetItem(SettingsStore::toText(store()->value(keys.at(row)))));
    }
}

void SettingsPanel::take(const QTableWidgetItem *item)
{
    store()->setValue(m_table->item(item->row(), KeyColumn)->text(),
                      SettingsStore::fromText(item->text()));
}

// A key has a group and a name: what has none is no setting that a page could ask for.
void SettingsPanel::add()
{
    const QStringList parts = m_key->text().split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (parts.size() < 2)
        return;
    store()->setValue(QLatin1Char('/') + parts.join(QLatin1Char('/')),
                      SettingsStore::fromText(m_value->text()));
    m_key->clear();
    m_value->clear();
}

void SettingsPanel::removeChosen()
{
    const QTableWidgetItem *key = m_table->item(m_table->currentRow(), KeyColumn);
    if (key)
        store()->remove(key->text());
}

} // namespace simulator
