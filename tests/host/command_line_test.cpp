#include "host/command_line.h"
#include "host/exit_codes.h"

#include <QTemporaryDir>
#include <QTextStream>

#include <gtest/gtest.h>

namespace tolvinpt::host {
namespace {

using namespace Qt::StringLiterals;

// Hard copies: --print-to-pdf names a folder that exists (kept absolute), --print-preview is a flag.
TEST(CommandLine, HardCopyOptions)
{
    QTemporaryDir dir;
    QString outText, errText;
    QTextStream out(&outText), err(&errText);
    const CommandLine given = parseCommandLine(
        {u"host"_s, u"--print-to-pdf"_s, dir.path(), u"--print-preview"_s, u"--database"_s, u"x"_s}, out,
        err);
    EXPECT_FALSE(given.exitCode);
    EXPECT_EQ(given.pdfFolder, dir.path());
    EXPECT_TRUE(given.printPreview);

    const CommandLine missing =
        parseCommandLine({u"host"_s, u"--print-to-pdf"_s, dir.filePath(u"none"_s)}, out, err);
    EXPECT_EQ(missing.exitCode, toInt(ExitCode::BadCommandLine));
    EXPECT_TRUE(errText.contains(dir.filePath(u"none"_s))) << errText.toStdString();
}

} // namespace
} // namespace tolvinpt::host
