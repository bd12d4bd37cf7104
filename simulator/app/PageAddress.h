#pragma once

#include <QString>
#include <QUrl>

namespace simulator {

/// Where the page is that a person asked for.
class PageAddress
{
public:
    /// @p text is a file, a folder with an index.html, or a URL; empty means the page of a
    /// reception or, where it was not built, the plain sample page.
    explicit PageAddress(const QString &text);

    bool isFound() const { return m_error.isEmpty(); }
    QUrl url() const { return m_url; }
    /// Whether the page is a file of this machine; then its folder, and its name in it, which is empty
    /// for an index.html.
    bool isFile() const { return m_url.isLocalFile(); }
    QString folder() const;
    QString fileName() const;
    /// What is wrong and what to do; empty when the page was found. A page on a server counts as
    /// found: whether it is there shows when it is loaded.
    QString error() const { return m_error; }

private:
    void findDefault();
    void findFile(const QString &path);

    QUrl m_url;
    QString m_error;
};

} // namespace simulator
