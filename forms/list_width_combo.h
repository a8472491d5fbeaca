#pragma once

#include "platform/widgets/shared_drawing.h"

#include <QComboBox>
#include <QStyleOptionComboBox>

namespace tolvinpt {

// A combo box whose drop-down list is exactly as wide as the box. Items that carry a hidden code after
// a run of blanks ("name<100 blanks>:code") keep the code out of sight in the list as in the box;
// a plain QComboBox widens its list to show the whole item.
class ListWidthComboBox final : public SharedPaletteWidget<QComboBox, QStyleOptionComboBox>
{
    Q_OBJECT

public:
    explicit ListWidthComboBox(QWidget* parent);
    void showPopup() override;
};

} // namespace tolvinpt
