// Random text of every character class into every text field, then Tab: whatever the text, a field
// either keeps the focus with its message shown once, or holds a text of the right width.
#include "text_field_fixture.h"

#include "forms/assign_text.h"
#include "platform/text.h"

#include <random>
#include <vector>

using namespace tolvinpt;
using namespace tolvinpt::test;

namespace {

// Characters drawn one at a time; surrogate pairs and base-plus-mark pairs count as one draw.
const QStringList CharacterClasses[] = {
    u"A z 0 9 ! \" # $ % & ' ( ) * + , - . / : ; < = > ? @ [ ] ^ _ ` { | }"_s.split(u' '),
    u"ｱ ｶﾞ ﾊﾟ ﾜﾞ ｰ ｯ ｡ ｢ ｣ ､ ･ ﾞ ﾟ"_s.split(u' '),
    u"Ａ ｚ ０ ９ ！ ＃ ＄ （ ） ＋ － ＝"_s.split(u' '),
    u"ア ガ パ ヴ ッ ー ヷ ヺ 、 。 「 」 ・"_s.split(u' '),
    u"あ が ぱ っ を ゐ"_s.split(u' '),
    u"品 名 漢 字 東 京 髙 﨑"_s.split(u' '),
    {u" "_s, u"　"_s},
    {u"¥"_s, u"￥"_s, u"\\"_s, u"＼"_s},
    {u"~"_s, u"～"_s, u"〜"_s, u"‾"_s, u"￣"_s},
    {u"“"_s, u"”"_s, u"‘"_s, u"’"_s, u"−"_s, u"—"_s, u"‖"_s},
    {u"😀"_s, u"🍣"_s, u"한"_s, u"é"_s, u"ß"_s, u"\u00A0"_s, u"\u3099"_s},
};

class Draw
{
public:
    explicit Draw(unsigned seed) : m_random(seed) {}

    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_random); }

    QString text(int maxCharacters)
    {
        QString s;
        const int length = below(maxCharacters + 4);
        for (int i = 0; i < length; ++i) {
            const QStringList& characters = CharacterClasses[below(int(std::size(CharacterClasses)))];
            s += characters[below(int(characters.size()))];
        }
        return s;
    }

private:
    std::mt19937 m_random;
};

struct Field
{
    const ControlSpec* spec;
    Width width;
};

// What the check accepts, told character by character: a full-width field double-byte characters only,
// a half-width field single-byte ones. The check counts the bytes of the trimmed text against the
// characters of the untrimmed one, so each blank that the narrowing leaves at the end (from an
// ideographic blank) lets one double-byte character through.
bool acceptable(const QString& text, Width width)
{
    const QString trimmed = rightTrim(text);
    int doubleBytes = 0;
    for (const char32_t c : trimmed.toUcs4())
        doubleBytes += cp932ByteLength(QString::fromUcs4(&c, 1)) == 2;
    const int characters = int(trimmed.toUcs4().size());
    if (width == Width::Full)
        return trimmed == text && doubleBytes == characters;
    return doubleBytes == text.size() - trimmed.size();
}

} // namespace

TEST_F(TextFieldTest, RandomTextInEveryField)
{
    constexpr int RoundsPerField = 30;
    Draw draw(20050310);
    int refused = 0;
    std::vector<Field> fields;
    for (const auto& spec : frmdata::controls())
        if (const auto width = widthOf(spec))
            fields.push_back({&spec, *width});
    ASSERT_EQ(fields.size(), 19u);
    for (int round = 0; round < RoundsPerField; ++round) {
        for (const auto& [spec, width] : fields) {
            const QString typed = draw.text(spec->maxLength);
            auto how = Input(draw.below(3));
            if (how == Input::InputMethod && spec->input == InputMode::Disabled)
                how = Input::Paste;
            SCOPED_TRACE(testing::Message() << spec->name.toString().toStdString() << " way " << int(how)
                                            << " input \"" << typed.toStdString() << '"');

            QLineEdit* box = enter(spec->name);
            messages.shown.clear();
            input(box, how, typed);
            leave(box, Leave::Tab);
            const QString result = box->text();

            const bool accepted = !box->hasFocus();
            EXPECT_EQ(accepted, acceptable(result, width)) << "left with \"" << result.toStdString() << '"';
            if (accepted) {
                EXPECT_EQ(messages.shown.size(), 0);
            } else {
                ++refused;
                ASSERT_EQ(messages.shown.size(), 1);
                expectMessage(messages.shown[0], widthMessage(width, spec->maxLength));
                box->clear();
            }
            EXPECT_EQ(maxLengthOf(box), spec->maxLength);
            EXPECT_EQ(messages.beeps, 0);
        }
    }
    // The draw must exercise both outcomes.
    EXPECT_GT(refused, 10);
    EXPECT_LT(refused, RoundsPerField * int(fields.size()) - 10);
}
