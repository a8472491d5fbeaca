#pragma once

#include <QFont>

namespace tolvinpt {

// The forms' Japanese UI font, in which half-width and full-width forms look as they should.
QFont formFont();

} // namespace tolvinpt
