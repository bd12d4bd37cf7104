#pragma once

#include <QVariant>

namespace simulator {

/// Any JSON value as a text, for a database column.
class JsonText
{
public:
    /// The value as a JSON text; a null text when @p value is not set. Invalid when the text could
    /// not be read back: it is nested too deep.
    static QVariant fromValue(const QVariant &value);
    /// The value that fromValue() took; an invalid one for a null text.
    static QVariant toValue(const QVariant &text);
};

} // namespace simulator
