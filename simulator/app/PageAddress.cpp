#include "simulator/app/PageAddress.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace simulator {

namespace {

const char indexFile[] = "index.html";

} // namespace

PageAddress::PageAddress(const QString &text)
{
    if (text.isEmpty()) {
        findDefault();
        return;
    }
    // A colon alone makes no URL: files may have one in their name.
    const QUrl url(text, QUrl::StrictMode);
    if (url.isLocalFile() && !QFileInfo::exists(text))
        findFile(url.toLocalFile());
    else if (url.isValid() && !url.scheme().isEmpty() && !QFileInfo::exists(text))
        m_url = url;
    else
        findFile(text);
}

QString PageAddress::folder() const { return QFileInfo(m_url.toLocalFile()).path(); }

QString PageAddress::fileName() const
{
    const QString name = m_url.fileName();
    return name == QLatin1String(indexFile) ? QString() : name;
}

void PageAddress::findDefault()
{
    // An installed program shows what was installed with it.
    const QDir program(QCoreApplication::applicationDirPath());
    const QString source = QStringLiteral(PANOREL_SAMPLE_PAGE);
    const QStringList folders = {
        program.filePath(QStringLiteral("../share/panorel/pages/reception")),
        QStringLiteral(PANOREL_RECEPTION_PAGE),
        program.filePath(QStringLiteral("../share/panorel/pages/sample")),
        source,
        program.filePath(QStringLiteral("../../../simulator/pages/sample")),
    };
    for (const QString &folder : folders) {
        const QFileInfo index(QDir(folder).filePath(QLatin1String(indexFile)));
        if (!folder.isEmpty() && index.isFile()) {
            m_url = QUrl::fromLocalFile(index.canonicalFilePath());
            return;
        }
    }
    m_error = QStringLiteral("The page of a reception is not there, nor the sample page; they are "
                             "looked for in %1, too.\nName a page of your own with --page.")
                  .arg(QDir::cleanPath(source));
}

void PageAddress::findFile(const QString &path)
{
    QFileInfo file(path);
    if (file.isDir())
        file = QFileInfo(QDir(path).filePath(QLatin1String(indexFile)));
    if (file.isFile() && file.isReadable()) {
        m_url = QUrl::fromLocalFile(file.absoluteFilePath());
        return;
    }
    m_error = QStringLiteral("There is no page to read at \"%1\".\n"
                             "Give --page an HTML file, a folder with an index.html, or a URL with "
                             "its scheme, such as http://localhost:8000/.")
                  .arg(QDir::cleanPath(file.absoluteFilePath()));
}

} // namespace simulator
