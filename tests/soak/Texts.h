#pragma once

#include <QString>

// What the messages carry: a text that follows from the message's number, so that whoever receives
// it can tell whether it is whole. page.js makes the same texts.
namespace texts {

/// "NUMBER:" and then between 100 and 100,000 characters, of several scripts.
QString textOf(int number);

/// The number at the beginning of @p text; 0 when the rest is not what belongs to it.
int numberOf(const QString &text);

} // namespace texts
