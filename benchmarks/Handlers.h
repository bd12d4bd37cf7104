#pragma once

#include "benchmarks/NaiveBus.h"
#include "panorel/MessageHandler.h"

#include <memory>

// Handlers that do next to nothing, of types that the caller does not see: no compiler can call them
// but through their virtual tables.

std::unique_ptr<panorel::MessageHandler> makeHandler();
std::unique_ptr<naive::Handler> makeNaiveHandler();
