#pragma once

#include <QWidget>

class QPlainTextEdit;
class QSortFilterProxyModel;
class QTableView;

namespace simulator {

class MessageLog;

/// The running list of messages, with a filter and the whole text of the chosen one.
class MessageLogView : public QWidget
{
    Q_OBJECT

public:
    /// @p log is not owned and outlives the view.
    explicit MessageLogView(MessageLog *log, QWidget *parent = nullptr);

private:
    QWidget *createBar();
    void createTable();
    void showDetail();

    MessageLog *m_log;
    QSortFilterProxyModel *m_filter;
    QTableView *m_table;
    QPlainTextEdit *m_detail;
    bool m_following = true; // the newest message stays in sight
};

} // namespace simulator
