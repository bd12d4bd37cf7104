#pragma once

namespace panorel {
class Message;
}

/// Ends the program with @p what unless @p holds: that is how a target tells of a finding.
void require(bool holds, const char *what);

/// Requires what holds for every message that the library publishes: an id of its own, attributes
/// that JSON can carry, and a JSON text that can be read again.
void requirePublishable(const panorel::Message &message);
