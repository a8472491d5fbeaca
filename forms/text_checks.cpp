#include "forms/text_checks.h"

#include "forms/assign_text.h"
#include "platform/values/text.h"
#include "platform/widgets/messages.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

struct WidthCheck
{
    QString (*normalise)(const QString&);
    int bytesPerCharacter;
    QStringView title;
    QStringView onlyThese;
};

constexpr WidthCheck Half{toHalfWidth, 1, u"入力ﾁｪｯｸ - 半角項目", u"半角文字のみ入力可能です"};
constexpr WidthCheck Full{toFullWidth, 2, u"入力ﾁｪｯｸ - 漢字項目", u"全角文字のみ入力可能です"};

// Characters as the operator sees them: an emoji is one character, as it is one substitute byte.
int characterCount(const QString& text)
{
    return int(text.toUcs4().size());
}

bool check(QLineEdit* box, const WidthCheck& width)
{
    const QString s = width.normalise(rightTrim(box->text()));
    assignText(box, s);
    // Bytes of s trimmed again against the characters of s itself: a blank that only turns up at the end
    // through the conversion (a trailing ideographic blank in a half-width field) fails the check.
    if (cp932ByteLength(rightTrim(s)) == width.bytesPerCharacter * characterCount(s))
        return true;
    // QMessageBox shows CR LF as one line break.
    showExclamation(width.onlyThese.toString() + u"\r\n最大文字数は "_s + QString::number(maxLengthOf(box)) +
                        u" 桁です"_s,
                    width.title.toString());
    return false;
}

} // namespace

bool CheckHalfWidth(QLineEdit* box)
{
    return check(box, Half);
}

bool CheckFullWidth(QLineEdit* box)
{
    return check(box, Full);
}

} // namespace tolvinpt
