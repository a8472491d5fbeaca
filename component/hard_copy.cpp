#include <tolvinpt/hard_copy.h>

#include "capture/hard_copy.h"

namespace tolvinpt {

void SetHardCopySettings(const HardCopySettings& settings)
{
    capture::setHardCopyDestination({settings.PdfFolder, settings.Preview});
}

} // namespace tolvinpt
