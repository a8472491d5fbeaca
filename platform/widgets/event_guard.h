#pragma once

// Guard flags for change handlers that code raises.
//
// Qt raises a field's change signals for assignments by code as well as for typing, synchronously and
// nested inside the assignment: QLineEdit::textChanged and QComboBox::editTextChanged for setText and
// setEditText, QComboBox::currentIndexChanged for setCurrentIndex. A form connects its Change handlers
// to textChanged (not textEdited) and its Click handlers to currentIndexChanged, so both kinds of
// change run them. Assigning the text a field already holds, or selecting the item already selected,
// emits nothing and so runs no handler.
//
// Code that must change a field without its handler doing its usual work raises a flag that the
// handler tests, for exactly the time of the assignment:
//
//     {
//         EventGuard notSeek(NotSeek);
//         cobCurrency->setEditText(code); // cobCurrency_Change sees NotSeek and only marks the change
//     }
//
// The guard restores the flag's previous value, also on an early return or an exception, so guards of
// the same flag nest.

#include <utility>

namespace tolvinpt {

class EventGuard
{
public:
    explicit EventGuard(bool& flag) : m_flag(flag), m_previous(std::exchange(flag, true)) {}
    ~EventGuard() { m_flag = m_previous; }

    EventGuard(const EventGuard&) = delete;
    EventGuard& operator=(const EventGuard&) = delete;

private:
    bool& m_flag;
    bool m_previous;
};

} // namespace tolvinpt
