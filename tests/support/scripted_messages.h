#pragma once

#include "platform/widgets/messages.h"

#include <QList>

#include <gtest/gtest.h>

#include <deque>
#include <utility>

namespace tolvinpt::test {

// A message with a single OK button, which is its default.
inline Message okMessage(QStringView text, QStringView title, QMessageBox::Icon icon = QMessageBox::Warning)
{
    return {text.toString(), title.toString(), icon, QMessageBox::Ok, QMessageBox::Ok};
}

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

    // The messages shown since the last check were `expected`, in order, each with its text, title, icon,
    // buttons and default button; forgets them.
    void expectShown(const QList<Message>& expected)
    {
        const QList<Message> seen = std::exchange(shown, {});
        ASSERT_EQ(seen.size(), qsizetype(expected.size()))
            << (seen.isEmpty() ? "" : qPrintable(seen[0].text));
        auto m = seen.begin();
        for (const Message& e : expected) {
            EXPECT_EQ(m->text, e.text) << qPrintable(m->text);
            EXPECT_EQ(m->title, e.title) << qPrintable(m->title);
            EXPECT_EQ(m->icon, e.icon) << qPrintable(m->text);
            EXPECT_EQ(m->buttons, e.buttons) << qPrintable(m->text);
            EXPECT_EQ(m->defaultButton, e.defaultButton) << qPrintable(m->text);
            ++m;
        }
    }

    std::deque<QMessageBox::StandardButton> answers;
    QList<Message> shown;
    int beeps = 0;
};

} // namespace tolvinpt::test
