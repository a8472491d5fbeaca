#pragma once

#include "forms/control_row.h"

#include <QHash>
#include <QString>

#include <span>

class QWidget;

namespace tolvinpt {

class Twips;

using ControlMap = QHash<QString, QWidget*>;

// Creates every control of `catalogue` inside `client` (a frame's contents inside the frame), names,
// places and configures it, and links the Tab chain in tab order over the controls that Tab can
// reach (hidden, grey, labels and frames left out) and the tab strip, which only a click reaches. The client's font must be set first: captions
// are never clipped, a control grows to its caption's size instead. Returns the controls by name.
ControlMap buildControls(QWidget* client, std::span<const ControlSpec> catalogue, const Twips& twips);

// True for the kinds that can take the focus.
bool takesFocus(ControlKind kind);

} // namespace tolvinpt
