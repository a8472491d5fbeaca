// The entry form's "ﾊｰﾄﾞ ｺﾋﾟｰ": what is captured, where the page goes, and what the operator is told.
#include "capture/hard_copy.h"
#include "tests/forms/form_fixture.h"

#include <tolvinpt/hard_copy.h>

TEST(Placeholder, Nothing) {}
