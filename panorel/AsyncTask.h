#pragma once

#include "panorel/Export.h"

#include <QRunnable>

#include <functional>

/// A callable for a thread pool.
class PANOREL_EXPORT AsyncTask : public QRunnable
{
public:
    explicit AsyncTask(std::function<void()> function);

    /// Calls the callable. Throws std::bad_function_call when there is none.
    void run() override;

private:
    std::function<void()> m_function;
};
