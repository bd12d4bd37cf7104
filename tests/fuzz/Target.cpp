#include "tests/fuzz/Target.h"

#include "tests/fuzz/Check.h"

#include <QLoggingCategory>

#include <cstdio>

namespace {

void drop(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    const bool isMisuse = type == QtFatalMsg
        || (type == QtWarningMsg
            && (text.startsWith(QLatin1String("QObject::"))
                || text.startsWith(QLatin1String("QTimer::"))
                || text.startsWith(QLatin1String("QMetaObject::"))
                || text.startsWith(QLatin1String("QCoreApplication::"))));
    if (!isMisuse)
        return;
    std::fprintf(stderr, "%s\n", qPrintable(text));
    require(false, "Qt is used wrongly");
}

} // namespace

void dropLog() { qInstallMessageHandler(drop); }

void setVerbose(bool verbose)
{
    static bool isVerbose = !verbose;
    if (isVerbose == verbose)
        return;
    isVerbose = verbose;
    QLoggingCategory::setFilterRules(
        verbose ? QStringLiteral("panorel.debug=true\ndefault.debug=true")
                : QStringLiteral("panorel.debug=false\ndefault.debug=false"));
}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    fuzzInitialize();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ByteReader reader(data, size);
    fuzzOne(&reader);
    return 0;
}
