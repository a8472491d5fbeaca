#include "platform/key_filter.h"

#include "../support/scripted_messages.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace tolvinpt::test {
namespace {

// Types `text` one character at a time, as a keyboard would deliver it.
void type(QWidget* widget, const QString& text)
{
    for (const char32_t c : text.toUcs4()) {
        const QString one = QString::fromUcs4(&c, 1);
        const auto key = c < 0x80 ? QTest::asciiToKey(static_cast<char>(c)) : Qt::Key_unknown;
        QTest::sendKeyEvent(QTest::Click, widget, key, one, Qt::NoModifier);
    }
}

struct TypingCase
{
    const char* name;
    char32_t (*handler)(char32_t);
    QString typed;
    QString expected;
    int beeps;
};

TEST(KeyFilter, HandlersPassReplaceOrRefuseTypedCharacters)
{
    const TypingCase cases[] = {
        {"number keys", numberKey, QStringLiteral("12a.5-,3 "), QStringLiteral("12.53"), 4},
        {"number keys beyond single-byte", numberKey, QStringLiteral("1ｱ２"), QStringLiteral("1ｱ２"), 0},
        {"number keys at the range ends", numberKey, QStringLiteral("~ 9"), QStringLiteral("9"), 2},
        {"digit keys", digitKey, QStringLiteral("2005.03/07"), QStringLiteral("20050307"), 2},
        {"upper-case letters", upperCaseLetter, QStringLiteral("usd-1z~"), QStringLiteral("USD-1Z~"), 0},
        {"upper-case letters only a-z", upperCaseLetter, QStringLiteral("ａé"), QStringLiteral("ａé"), 0},
        {"upper-case", upperCase, QStringLiteral("kgａｂé1ß"), QStringLiteral("KGＡＢÉ1ß"), 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ScriptedMessages messages;
        QLineEdit edit;
        setKeyPress(&edit, c.handler);
        type(&edit, c.typed);
        EXPECT_EQ(edit.text(), c.expected);
        EXPECT_EQ(messages.beeps, c.beeps);
    }
}

TEST(KeyFilter, ControlKeysAlwaysPass)
{
    ScriptedMessages messages;
    QLineEdit edit;
    setKeyPress(&edit, numberKey);
    int returns = 0;
    QObject::connect(&edit, &QLineEdit::returnPressed, [&] { ++returns; });

    type(&edit, QStringLiteral("1234"));
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QTest::keyClick(&edit, Qt::Key_Home);
    QTest::keyClick(&edit, Qt::Key_Delete);
    EXPECT_EQ(edit.text(), QStringLiteral("23"));
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(edit.text(), QString());
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(edit.text(), QStringLiteral("23"));
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(returns, 1);
    EXPECT_EQ(messages.beeps, 0);
}

TEST(KeyFilter, ReplacedCharactersAreTyped)
{
    ScriptedMessages messages;
    QLineEdit edit;
    edit.setMaxLength(3);
    setKeyPress(&edit, upperCase);
    int edits = 0;
    QObject::connect(&edit, &QLineEdit::textEdited, [&] { ++edits; });
    type(&edit, QStringLiteral("abcd"));
    EXPECT_EQ(edit.text(), QStringLiteral("ABC"));
    EXPECT_EQ(edits, 3);
}

TEST(KeyFilter, PasteAndInputMethodBypassTheHandler)
{
    ScriptedMessages messages;
    QLineEdit edit;
    setKeyPress(&edit, digitKey);

    QInputMethodEvent compose;
    compose.setCommitString(QStringLiteral("x.1"));
    QApplication::sendEvent(&edit, &compose);
    EXPECT_EQ(edit.text(), QStringLiteral("x.1"));

    QApplication::clipboard()->setText(QStringLiteral("-a,"));
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit.text(), QStringLiteral("x.1-a,"));
    EXPECT_EQ(messages.beeps, 0);
}

TEST(KeyFilter, AnEditableComboIsOneField)
{
    for (const bool intoLineEdit : {false, true}) {
        SCOPED_TRACE(intoLineEdit ? "keys to the line edit" : "keys to the combo");
        ScriptedMessages messages;
        QComboBox combo;
        combo.setEditable(true);
        setKeyPress(&combo, upperCaseLetter);
        setKeyPress(&combo, numberKey); // the later handler replaces the earlier one
        setKeyPress(&combo, upperCaseLetter);
        combo.setEditText(QString());
        QWidget* target = intoLineEdit ? static_cast<QWidget*>(combo.lineEdit()) : &combo;
        type(target, QStringLiteral("eu1"));
        EXPECT_EQ(combo.currentText(), QStringLiteral("EU1"));
        EXPECT_EQ(messages.beeps, 0);
    }
}

TEST(KeyFilter, RemovingTheHandlerPassesEverything)
{
    ScriptedMessages messages;
    QLineEdit edit;
    setKeyPress(&edit, digitKey);
    setKeyPress(&edit, nullptr);
    type(&edit, QStringLiteral("a1"));
    EXPECT_EQ(edit.text(), QStringLiteral("a1"));
    EXPECT_EQ(messages.beeps, 0);
}

} // namespace
} // namespace tolvinpt::test
