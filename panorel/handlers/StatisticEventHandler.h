#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

class QDate;

namespace panorel {

/// Appends the page's statistics records to CSV files: one file for each statistics topic, in one
/// folder for each period. Never replies; what cannot be written is lost silently.
class PANOREL_EXPORT StatisticEventHandler : public MessageHandler
{
public:
    /// @p directory is the root of the files; missing folders are created.
    explicit StatisticEventHandler(const QString &directory);

    /// "system.statistic".
    QString topic() const;

    /// "year", "month" or "week" (Monday to Sunday); anything else means a day. Counts from the
    /// next record on.
    void setPeriodicity(const QString &periodicity);

    /// Writes into the folder of the current local date; a changed time zone counts within a quarter
    /// of an hour.
    ///
    /// "topic": names the file, and nothing is written when it is empty or holds '/', '\' or NUL;
    /// "data": list of texts, appended as UTF-8 without anything between them.
    void handle(Message message) override;

    /// Name of the folder of the period that @p date falls in: "2019", "06.2019",
    /// "03.06.2019-09.06.2019" or "05.06.2019".
    static QString periodFolder(const QString &periodicity, const QDate &date);

private:
    const QString &currentFolder();

    QString m_directory;
    QString m_periodicity;
    QString m_folder; // of the quarter of an hour below; empty when it must be found anew
    qint64 m_quarter = 0;
};

} // namespace panorel
