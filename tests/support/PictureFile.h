#pragma once

#include "panorel/RobotPaths.h"

#include <QDir>
#include <QFile>

/// The printed picture's place in the robot's home. Empty at the beginning; what lay there before
/// is back at the end.
class PictureFile
{
public:
    PictureFile()
        : m_path(panorel::paths::printPicture())
        , m_kept(m_path + QStringLiteral(".kept"))
        , m_home(QFileInfo(m_path).path())
        , m_existed(QDir(m_home).exists())
        , m_writable(QDir().mkpath(m_home) && QFileInfo(m_home).isWritable())
    {
        if (QFile::exists(m_kept))
            remove(); // a test's that was ended half-way
        else
            QFile::rename(m_path, m_kept);
    }
    ~PictureFile()
    {
        remove();
        QFile::rename(m_kept, m_path);
        if (!m_existed)
            QDir().rmdir(m_home); // if it is empty
    }

    QString path() const { return m_path; }

    /// False when the home belongs to somebody else: build with a preset for a desk.
    bool isWritable() const { return m_writable; }

    /// Whether there is a file now.
    bool exists() const { return QFileInfo(m_path).isFile(); }

    QByteArray content() const
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Removes the file, or the empty folder or the link that stands in its place.
    void remove() const
    {
        if (!QFile::remove(m_path))
            QDir().rmdir(m_path);
    }

private:
    Q_DISABLE_COPY(PictureFile)

    const QString m_path;
    const QString m_kept;
    const QString m_home;
    const bool m_existed;
    const bool m_writable;
};
