#include "forms/combo_items.h"

#include <QComboBox>

namespace tolvinpt {

QString customerItem(const QString& name, const QString& code)
{
    return name + QString(100, u' ') + u':' + code;
}

QString customerCodeOf(const QString& item)
{
    return item.mid(item.lastIndexOf(u':') + 1);
}

QString ownCodeItem(const QString& name, const QString& code)
{
    return name + QString(200, u' ') + u'\t' + code;
}

QString ownCodeOf(const QString& item)
{
    return item.mid(item.indexOf(u'\t') + 1);
}

int FindComboItem(QComboBox* combo, const QString& key)
{
    // Backwards, so that of two items with the same code the later one wins.
    for (int index = combo->count() - 1; index >= 0; --index) {
        if (key.startsWith(customerCodeOf(combo->itemText(index)))) {
            combo->setCurrentIndex(index);
            return index;
        }
    }
    return -1;
}

} // namespace tolvinpt
