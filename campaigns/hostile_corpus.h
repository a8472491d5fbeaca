#pragma once

// Hostile operator input: strings built from classes of characters that have broken entry forms
// before (quotes, wildcards, SQL, control characters, NUL, lone surrogates, bidi and combining marks,
// characters outside code page 932, both widths of katakana, full-width digits, very long texts) and
// mixes of them.

#include <QList>
#include <QString>

namespace tolvinpt::campaign {

struct HostileString
{
    QString kind; // the class it was built from
    QString text;
};

// The whole corpus, or the first `perClass` strings of each class (0: all), in a fixed order.
QList<HostileString> hostileCorpus(int perClass = 0);

// `text` with every character outside printable ASCII written as \uXXXX, for reports.
QString visible(const QString& text, qsizetype limit = 60);

} // namespace tolvinpt::campaign
