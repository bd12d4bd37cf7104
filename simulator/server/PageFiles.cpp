#include "simulator/server/PageFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>

namespace simulator {

namespace {

struct TextType
{
    const char *ending;
    const char *type;
};

// A browser runs no module and applies no style of another type, whatever the system's table says.
const TextType textTypes[] = {
    {"html", "text/html"},       {"htm", "text/html"},     {"js", "text/javascript"},
    {"mjs", "text/javascript"},  {"css", "text/css"},      {"json", "application/json"},
    {"map", "application/json"}, {"svg", "image/svg+xml"}, {"txt", "text/plain"},
};

} // namespace

PageFiles::PageFiles(const QString &folder)
    : m_folder(QFileInfo(folder).canonicalFilePath())
{ }

PageFiles::Found PageFiles::find(const QString &path) const
{
    if (m_folder.isEmpty() || !path.startsWith(QLatin1Char('/')))
        return {};
    const QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        if (part.startsWith(QLatin1Char('.')))
            return {};
    }
    QFileInfo file(m_folder + path);
    if (file.isDir()) {
        if (!path.endsWith(QLatin1Char('/')))
            return {{}, {}, true};
        file = QFileInfo(QDir(file.filePath()).filePath(QStringLiteral("index.html")));
    }
    const QString real = file.canonicalFilePath();
    if (!real.startsWith(m_folder + QLatin1Char('/')) || !file.isFile() || !file.isReadable())
        return {};
    return {real, typeOf(real), false};
}

QByteArray PageFiles::typeOf(const QString &file)
{
    const QString ending = QFileInfo(file).suffix().toLower();
    for (const TextType &known : textTypes) {
        if (ending == QLatin1String(known.ending))
            return QByteArray(known.type) + "; charset=utf-8";
    }
    return QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension).name().toLatin1();
}

} // namespace simulator
