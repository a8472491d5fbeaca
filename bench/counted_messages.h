#pragma once

#include "platform/widgets/messages.h"

namespace tolvinpt::bench {

// Answers every message box with OK and counts it and every beep: what is measured raises none.
class CountedMessages final : public MessageService
{
public:
    QMessageBox::StandardButton show(const Message&) override
    {
        ++shown;
        return QMessageBox::Ok;
    }
    void beep() override { ++shown; }
    int shown = 0;
};

} // namespace tolvinpt::bench
