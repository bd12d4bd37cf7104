#include "panorel/AsyncTask.h"

#include <utility>

AsyncTask::AsyncTask(std::function<void()> function)
    : m_function(std::move(function))
{ }

void AsyncTask::run() { m_function(); }
