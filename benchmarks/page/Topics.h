#pragma once

#include <QString>

// What page.js says to its host.
namespace topics {

const QString echo = QStringLiteral("bench.echo");
const QString done = QStringLiteral("bench.done");

} // namespace topics
