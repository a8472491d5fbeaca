#pragma once

// An event filter that Qt can call safely: what filter() throws is kept by the guard (guarded.h) and the
// event passes on, instead of unwinding through Qt.

#include "platform/widgets/guarded.h"

#include <QObject>

namespace tolvinpt {

class GuardedEventFilter : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) final
    {
        return guardedCall([&] { return filter(watched, event); }, false);
    }
    // True swallows the event.
    virtual bool filter(QObject* watched, QEvent* event) = 0;
};

} // namespace tolvinpt
