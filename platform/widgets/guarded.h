#pragma once

// Nothing may unwind through Qt: its widgets are not built to be unwound, so an exception that leaves a
// slot, an event filter or an event handler ends the process. Every place where Qt enters our code runs
// through guarded(): a failure is caught there and kept by the innermost HandlerFailures (the first
// failure only), the window that scope runs is closed, and HandlerFailures::exec() throws the failure
// once the event loop has returned. Outside any HandlerFailures a failure can only be reported on the
// console.
//
//     connect(edit, &QLineEdit::textChanged, this, guarded([this] { ... }));
//     connect(tabs, &QTabBar::currentChanged, this, guarded(this, &Form::TabStrip1_Click));
//     class Lock : public GuardedEventFilter { bool filter(QObject*, QEvent*) override; }  //
//     guarded_event_filter.h

#include <exception>
#include <functional>
#include <type_traits>
#include <utility>

class QDialog;

namespace tolvinpt {

// Keeps what the guarded handlers of one modal window threw. UI thread only; scopes nest.
class HandlerFailures
{
public:
    HandlerFailures();
    ~HandlerFailures();
    HandlerFailures(const HandlerFailures&) = delete;
    HandlerFailures& operator=(const HandlerFailures&) = delete;

    // Shows `dialog` modally; a handler failure closes it (without its close handling). Afterwards the
    // window that was active before is active again. Throws the first failure kept by this scope, also one
    // kept before the show, in which case the dialog is not shown.
    int exec(QDialog& dialog);
    // Throws the first failure kept so far, if any.
    void rethrow() const;

    // Keeps `failure` in the innermost scope, unless it holds one already, and closes its window.
    static void keep(std::exception_ptr failure) noexcept;

private:
    HandlerFailures* m_outer;
    QDialog* m_dialog = nullptr;
    std::exception_ptr m_failure;
};

// Runs `handler` and returns its result; when it throws, keeps the failure and returns `onFailure`.
template <typename Handler, typename Result> Result guardedCall(Handler&& handler, Result onFailure) noexcept
{
    try {
        return std::forward<Handler>(handler)();
    } catch (...) {
        HandlerFailures::keep(std::current_exception());
        return onFailure;
    }
}

// Runs `handler`; when it throws, keeps the failure.
template <typename Handler> void guardedCall(Handler&& handler) noexcept
{
    try {
        std::forward<Handler>(handler)();
    } catch (...) {
        HandlerFailures::keep(std::current_exception());
    }
}

// A slot for connect(): runs `handler` under the guard, with the signal's arguments when it takes them.
template <typename Handler> auto guarded(Handler handler)
{
    return [handler = std::move(handler)](auto&&... args) mutable noexcept -> void {
        try {
            if constexpr (std::is_invocable_v<Handler&, decltype(args)...>)
                std::invoke(handler, std::forward<decltype(args)>(args)...);
            else if constexpr (std::is_invocable_v<Handler&>) // clang checks a plain else too early
                std::invoke(handler);
            else
                static_assert(sizeof...(args) < 0, "the handler takes neither the signal's arguments nor none");
        } catch (...) {
            HandlerFailures::keep(std::current_exception());
        }
    };
}

// A slot for connect(): the member function `slot` of `object`, under the guard.
template <typename Object, typename Slot> auto guarded(Object* object, Slot slot)
{
    return guarded(std::bind_front(slot, object));
}

} // namespace tolvinpt
