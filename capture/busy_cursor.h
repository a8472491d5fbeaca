#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace tolvinpt::capture {

// The wait cursor over the whole application while it lives; restored on every way out.
class BusyCursor
{
public:
    BusyCursor() { QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor)); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

} // namespace tolvinpt::capture
