#pragma once

#include "panorel/RobotPaths.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStringList>

/// The statistics files of one topic in the robot's home, whatever day it is. Removed at the
/// beginning and at the end, with the folders that this made.
class StatisticFiles
{
public:
    explicit StatisticFiles(const QString &topic)
        : m_name(topic + QStringLiteral(".csv"))
        , m_root(panorel::paths::statisticDirectory())
        , m_existed(QDir(m_root).exists())
        , m_writable(QDir().mkpath(m_root))
    {
        remove();
    }
    ~StatisticFiles()
    {
        remove();
        if (!m_existed)
            QDir().rmpath(m_root); // as far as it is empty
    }

    /// False when the home belongs to somebody else: build with a preset for a desk.
    bool isWritable() const { return m_writable; }

    QStringList paths() const
    {
        QStringList found;
        QDirIterator it(m_root, {m_name}, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            found.append(it.next());
        return found;
    }

    /// Names of the folders that hold a file of the topic.
    QStringList folders() const
    {
        QStringList names;
        const QStringList files = paths();
        for (const QString &path : files)
            names.append(QFileInfo(path).dir().dirName());
        return names;
    }

    void remove() const
    {
        const QStringList files = paths();
        for (const QString &path : files) {
            QFile::remove(path);
            QDir(m_root).rmdir(QFileInfo(path).dir().dirName());
        }
    }

private:
    Q_DISABLE_COPY(StatisticFiles)

    const QString m_name;
    const QString m_root;
    const bool m_existed;
    const bool m_writable;
};
