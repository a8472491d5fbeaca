#pragma once

#include "platform/messages.h"

#include <QList>

#include <deque>

namespace tolvinpt::test {

// Installs itself for its lifetime: records every message and beep and answers from a script
// (the default button, or Ok, when the script is empty).
class ScriptedMessages final : public MessageService
{
public:
    ScriptedMessages() { installMessageService(this); }
    ~ScriptedMessages() override { installMessageService(nullptr); }

    QMessageBox::StandardButton show(const Message& message) override
    {
        shown.append(message);
        if (!answers.empty()) {
            const auto answer = answers.front();
            answers.pop_front();
            return answer;
        }
        return message.defaultButton != QMessageBox::NoButton ? message.defaultButton : QMessageBox::Ok;
    }
    void beep() override { ++beeps; }

    std::deque<QMessageBox::StandardButton> answers;
    QList<Message> shown;
    int beeps = 0;
};

} // namespace tolvinpt::test
