#pragma once

#include <tolvinpt/global.h>

#include <QList>
#include <QVariant>

namespace tolvinpt {

// The key under which the component's record list knows a record: its decimal id followed by "Key"
// ("1234Key"). Pass these as the elements of Items.
inline QString ListKey(qint64 id)
{
    return QString::number(id) + QStringLiteral("Key");
}

// The host's list of record identifiers, 1-based. Each element is a number or a text that starts with
// the decimal record id; ListKey texts are what the component expects (see docs/host-api.md). The
// component keeps a reference to the host's object during a call, never a copy, and appends the
// ListKey of each record that the operator saves in new-record mode during an InputData call.
class TOLVINPT_EXPORT Items
{
public:
    Items() = default;
    Items(std::initializer_list<QVariant> elements) : m_elements(elements) {}

    int Count() const { return static_cast<int>(m_elements.size()); }
    // Element at a 1-based position; throws tolvinpt::Error when out of range.
    QVariant Item(int position) const;
    void Add(const QVariant& element) { m_elements.append(element); }

private:
    QList<QVariant> m_elements;
};

} // namespace tolvinpt
