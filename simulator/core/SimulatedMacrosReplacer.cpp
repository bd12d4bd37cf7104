#include "simulator/core/SimulatedMacrosReplacer.h"

namespace simulator {

namespace {

// Characters. A page could otherwise lend a long value and use it a thousand times.
const int LongestText = 100000;

} // namespace

SimulatedMacrosReplacer::SimulatedMacrosReplacer(QObject *parent)
    : IMacrosReplacer(parent)
{ }

void SimulatedMacrosReplacer::setMacros(const QString &name, const QString &value)
{
    m_macros.insert(name, value);
}

void SimulatedMacrosReplacer::removeMacros(const QString &name) { m_macros.remove(name); }

void SimulatedMacrosReplacer::setDefaults(const QMap<QString, QString> &defaults)
{
    m_defaults = defaults;
}

QString SimulatedMacrosReplacer::expand(const QString &text,
                                        const QMap<QString, QString> &personal) const
{
    const QLatin1Char mark('%');
    QString result;
    int position = 0;
    while (position < text.size()) {
        const int begin = text.indexOf(mark, position);
        const int end = begin < 0 ? -1 : text.indexOf(mark, begin + 1);
        if (end < 0)
            break;

        result += text.midRef(position, begin - position);
        const QString name = text.mid(begin + 1, end - begin - 1);
        const QMap<QString, QString> *known = &m_macros;
        if (!known->contains(name))
            known = personal.contains(name) ? &personal : &m_defaults;
        if (known->contains(name)) {
            if (result.size() + known->value(name).size() > LongestText)
                break;
            result += known->value(name);
            position = end + 1;
        } else {
            // A plain per cent sign; the second one may still open a macro.
            result += mark;
            position = begin + 1;
        }
    }
    return result + text.midRef(position);
}

QMap<QString, QString> SimulatedMacrosReplacer::macros() const { return m_macros; }

} // namespace simulator
