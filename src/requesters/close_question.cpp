#include "requesters/close_question.h"

#include <atomic>

static std::atomic<CloseQuestion> Installed{nullptr};

void SetCloseQuestion(CloseQuestion question)
{
    Installed.store(question);
}

CloseQuestion InstalledCloseQuestion()
{
    return Installed.load();
}
