#pragma once

#include <tolvinpt/global.h>

#include <QList>
#include <QVariant>

namespace tolvinpt {

// The host's list of record identifiers, 1-based. Each element is a number or a text that starts with
// the decimal record id. The component keeps a reference to the host's object during a call, never a copy.
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
