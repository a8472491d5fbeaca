#pragma once

// Readable QString values in GoogleTest messages.
#include <QString>

#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os)
{
    *os << '"' << s.toStdString() << '"';
}
