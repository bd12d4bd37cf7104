#pragma once

#include <QByteArray>
#include <QString>

namespace simulator {

/// The files of a folder, as a browser asks for them. Nothing outside the folder is found, nothing
/// hidden (".git", ".env"), and nothing to which a link leads out of it.
class PageFiles
{
public:
    struct Found
    {
        /// The file to send; empty when there is none.
        QString file;
        QByteArray type;
        /// Set where a folder was asked for without a slash at its end: relative addresses in its
        /// page would mean its parent.
        bool isFolder = false;
    };

    explicit PageFiles(const QString &folder);

    /// @p path is absolute and decoded: "/", "/style.css". A folder stands for its index.html.
    Found find(const QString &path) const;

    /// The media type by the name's ending.
    static QByteArray typeOf(const QString &file);

private:
    QString m_folder; // canonical
};

} // namespace simulator
