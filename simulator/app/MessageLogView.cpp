#include "simulator/app/MessageLogView.h"

#include "simulator/app/MessageLog.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

namespace simulator {

MessageLogView::MessageLogView(MessageLog *log, QWidget *parent)
    : QWidget(parent)
    , m_log(log)
    , m_filter(new QSortFilterProxyModel(this))
    , m_table(new QTableView)
    , m_detail(new QPlainTextEdit)
{
    m_filter->setSourceModel(m_log);
    m_filter->setFilterRole(MessageLog::FilterRole);
    m_filter->setFilterCaseSensitivity(Qt::CaseInsensitive);
    createTable();

    m_detail->setReadOnly(true);
    m_detail->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_detail->setPlaceholderText(tr("Choose a message to read all of it."));
    m_detail->setFixedHeight(72);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(createBar());
    layout->addWidget(m_table, 1);
    layout->addWidget(m_detail);
}

QWidget *MessageLogView::createBar()
{
    auto *bar = new QWidget;
    auto *filter = new QLineEdit;
    filter->setPlaceholderText(tr("Only with …"));
    filter->setClearButtonEnabled(true);
    auto *faces = new QCheckBox(tr("Face reports"));
    faces->setToolTip(tr("The camera reports faces many times a second"));
    auto *pause = new QPushButton(tr("Pause"));
    pause->setCheckable(true);
    auto *clear = new QPushButton(tr("Clear"));

    connect(filter, &QLineEdit::textChanged, m_filter,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(faces, &QCheckBox::toggled, m_log, &MessageLog::setFaceReports);
    connect(pause, &QPushButton::toggled, m_log, &MessageLog::setPaused);
    connect(clear, &QPushButton::clicked, m_log, &MessageLog::clear);
    connect(clear, &QPushButton::clicked, m_detail, &QPlainTextEdit::clear);

    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(filter, 1);
    layout->addWidget(faces);
    layout->addWidget(pause);
    layout->addWidget(clear);
    return bar;
}

void MessageLogView::createTable()
{
    // Smaller than the panel's: the attributes need the room.
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    m_table->setFont(small);
    m_table->horizontalHeader()->setFont(small);
    const QFontMetrics metrics(small);

    m_table->setModel(m_filter);
    m_table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(metrics.height() + 5);

    QHeaderView *header = m_table->horizontalHeader();
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setStretchLastSection(true);
    const int margin = 10;
    const auto width = [&metrics](const QString &text) {
        return metrics.horizontalAdvance(text) + margin;
    };
    header->resizeSection(MessageLog::TimeColumn, width(QStringLiteral("00:00:00")));
    header->resizeSection(MessageLog::DirectionColumn, width(QStringLiteral("robot → page")));
    header->resizeSection(MessageLog::TopicColumn,
                          width(QStringLiteral("dialog.robot.replic.finish")));

    QScrollBar *bar = m_table->verticalScrollBar();
    connect(m_filter, &QAbstractItemModel::rowsAboutToBeInserted, this,
            [this, bar] { m_following = bar->value() == bar->maximum(); });
    connect(m_filter, &QAbstractItemModel::rowsInserted, this, [this] {
        if (m_following)
            m_table->scrollToBottom();
    });
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MessageLogView::showDetail);
}

void MessageLogView::showDetail()
{
    const QModelIndex current = m_table->currentIndex();
    if (current.isValid())
        m_detail->setPlainText(current.data(MessageLog::DetailRole).toString());
}

} // namespace simulator
