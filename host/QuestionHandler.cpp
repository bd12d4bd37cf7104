#include "host/QuestionHandler.h"

QuestionHandler::QuestionHandler(QObject *parent)
    : QObject(parent)
{ }

QuestionHandler::~QuestionHandler() = default;
