#pragma once

#include "host/ID.h"

#include <QVariantMap>

class Answer;
class FaceInfo;
class Replica;

// A record's fields by name, for comparing records and showing how they differ.

QVariant fields(const ID &id);
QVariantMap fields(const Replica &replica);
QVariantMap fields(const Answer &answer);
/// The matches are a list in the record's order.
QVariantMap fields(const FaceInfo &face);
