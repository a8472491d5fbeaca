#include "platform/widgets/key_filter.h"

#include "tests/support/operator_input.h"
#include "tests/support/scripted_messages.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace tolvinpt::test {
namespace {

// Each row installs digitKey first: the row's handler replaces it (null removes it). Only printable
// single-byte characters are filtered; every character typed or replaced counts as one edit.
TEST(KeyFilter, HandlersPassReplaceOrRefuseTypedCharacters)
{
    const std::tuple<char32_t (*)(char32_t), QString, QString, int> cases[] = {
        {numberKey, QStringLiteral("12a.5-,3 ~ｱ２"), QStringLiteral("12.53ｱ２"), 5},
        {digitKey, QStringLiteral("2005.03/07"), QStringLiteral("20050307"), 2},
        {upperCaseLetter, QStringLiteral("usd-1z~ａé"), QStringLiteral("USD-1Z~ａé"), 0},
        {upperCase, QStringLiteral("kgａｂé1ß"), QStringLiteral("KGＡＢÉ1ß"), 0},
        {nullptr, QStringLiteral("a1"), QStringLiteral("a1"), 0}};
    for (const auto& [handler, typed, expected, beeps] : cases) {
        SCOPED_TRACE(typed.toStdString());
        ScriptedMessages messages;
        QLineEdit edit;
        int edits = 0;
        QObject::connect(&edit, &QLineEdit::textEdited, [&] { ++edits; });
        setKeyPress(&edit, digitKey);
        setKeyPress(&edit, handler);
        typeText(typed, &edit);
        EXPECT_EQ(edit.text(), expected);
        EXPECT_EQ(messages.beeps, beeps);
        EXPECT_EQ(edits, expected.size());
    }
}

// Control keys always pass; input-method text and pastes bypass the handler.
TEST(KeyFilter, ControlKeysInputMethodAndPastePass)
{
    ScriptedMessages messages;
    QLineEdit edit;
    setKeyPress(&edit, digitKey);
    int returns = 0;
    QObject::connect(&edit, &QLineEdit::returnPressed, [&] { ++returns; });
    typeText(QStringLiteral("1234"), &edit);
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Home, Qt::Key_Delete})
        QTest::keyClick(&edit, key);
    EXPECT_EQ(edit.text(), QStringLiteral("23"));
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_X, Qt::Key_Z})
        QTest::keyClick(&edit, key, Qt::ControlModifier); // select all, cut, undo
    EXPECT_EQ(edit.text(), QStringLiteral("23"));
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("23"));
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Return})
        QTest::keyClick(&edit, key);
    EXPECT_EQ(returns, 1);

    QInputMethodEvent compose;
    compose.setCommitString(QStringLiteral("x.1"));
    QApplication::sendEvent(&edit, &compose);
    QApplication::clipboard()->setText(QStringLiteral("-a,"));
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit.text(), QStringLiteral("23x.1-a,"));
    EXPECT_EQ(messages.beeps, 0);
}

TEST(KeyFilter, AnEditableComboIsOneField)
{
    for (const bool intoLineEdit : {false, true}) {
        ScriptedMessages messages;
        QComboBox combo;
        combo.setEditable(true);
        setKeyPress(&combo, upperCaseLetter);
        combo.setEditText(QString());
        typeText(QStringLiteral("eu1"), intoLineEdit ? static_cast<QWidget*>(combo.lineEdit()) : &combo);
        EXPECT_EQ(combo.currentText(), QStringLiteral("EU1")) << intoLineEdit;
    }
}

} // namespace
} // namespace tolvinpt::test
