#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <functional>

namespace panorel {

/// A handler made of a callable.
class PANOREL_EXPORT FunctionalHandler : public MessageHandler
{
public:
    explicit FunctionalHandler(std::function<void(Message)> function);

    /// Calls the callable; an empty one does nothing.
    void handle(Message message) override;

private:
    std::function<void(Message)> m_function;
};

} // namespace panorel
