#pragma once

// The entry form in new-record mode, active, with every text field open; input and leaving as the
// operator does them: typed keys, paste, input-method text, Tab, Shift+Tab, a mouse click.

#include "form_fixture.h"
#include "qt_print.h"

#include "forms/frmData/catalogue.h"
#include "tests/support/scripted_messages.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTabBar>
#include <QTest>

#include <optional>

namespace tolvinpt::test {

using namespace Qt::StringLiterals;

enum class Width { Half, Full };
enum class Input { Type, Paste, InputMethod };
enum class Leave { Tab, BackTab, Click };

class TextFieldTest : public FormTest
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        load();
        form->gNewStart();
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }

    static const ControlSpec& specOf(QStringView name)
    {
        for (const auto& spec : frmdata::controls())
            if (spec.name == name)
                return spec;
        throw std::invalid_argument("no such control");
    }

    // Brings the field's information page to the front, then clicks into the field.
    QLineEdit* enter(QStringView name) const
    {
        const ControlSpec& spec = specOf(name);
        const auto tabs = frmdata::infoTabs();
        for (qsizetype i = 0; i < qsizetype(tabs.size()); ++i)
            if (tabs[i].page == spec.container)
                form->control<QTabBar>(u"TabStrip1"_s)->setCurrentIndex(int(i));
        QLineEdit* box = text(name.toString());
        click(box);
        EXPECT_EQ(QApplication::focusWidget(), box) << "entering " << name.toString().toStdString();
        return box;
    }

    // A click as the window system delivers it: through the window, at the centre of `target`.
    void click(QWidget* target) const
    {
        QTest::mouseClick(form->windowHandle(), Qt::LeftButton, {},
                          target->mapTo(form.get(), target->rect().center()));
    }

    static void type(QWidget* box, const QString& text)
    {
        for (const char32_t c : text.toUcs4()) {
            const auto key = c < 0x80 ? QTest::asciiToKey(static_cast<char>(c)) : Qt::Key_unknown;
            QTest::sendKeyEvent(QTest::Click, box, key, QString::fromUcs4(&c, 1), Qt::NoModifier);
        }
    }

    static void input(QLineEdit* box, Input how, const QString& text)
    {
        switch (how) {
        case Input::Type:
            type(box, text);
            return;
        case Input::Paste:
            QApplication::clipboard()->setText(text);
            QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
            return;
        case Input::InputMethod: {
            QInputMethodEvent composing(text, {});
            QApplication::sendEvent(box, &composing);
            QInputMethodEvent committed;
            committed.setCommitString(text);
            QApplication::sendEvent(box, &committed);
            return;
        }
        }
    }

    // Where Shift+Tab or a click goes from `box`; a field that stays open and empty in these tests.
    QWidget* clickTarget(const QLineEdit* box) const
    {
        return control(box->objectName() == u"txtHCode"_s ? u"txtMyHCode"_s : u"txtHCode"_s);
    }

    void leave(QLineEdit* box, Leave how) const
    {
        switch (how) {
        case Leave::Tab:
            QTest::keyClick(box, Qt::Key_Tab);
            return;
        case Leave::BackTab:
            QTest::keyClick(box, Qt::Key_Backtab, Qt::ShiftModifier);
            return;
        case Leave::Click:
            click(clickTarget(box));
            return;
        }
    }

    // The message a refused field shows.
    static Message widthMessage(Width width, int maxLength)
    {
        const bool half = width == Width::Half;
        return {(half ? u"半角文字のみ入力可能です\r\n最大文字数は %1 桁です"_s
                      : u"全角文字のみ入力可能です\r\n最大文字数は %1 桁です"_s)
                    .arg(maxLength),
                half ? u"入力ﾁｪｯｸ - 半角項目"_s : u"入力ﾁｪｯｸ - 漢字項目"_s, QMessageBox::Warning,
                QMessageBox::Ok, QMessageBox::Ok};
    }

    // Told by the input method: off for half-width, hiragana for full-width; the two short codes without an
    // input method are half-width too. Null for the other text boxes.
    static std::optional<Width> widthOf(const ControlSpec& spec)
    {
        if (spec.kind != ControlKind::TextBox)
            return std::nullopt;
        if (spec.input == InputMode::Off || spec.name == u"txtKensa" || spec.name == u"txtUnit")
            return Width::Half;
        if (spec.input == InputMode::Hiragana)
            return Width::Full;
        return std::nullopt;
    }

    ScriptedMessages messages;
};

inline void expectMessage(const Message& shown, const Message& expected)
{
    EXPECT_EQ(shown.text, expected.text);
    EXPECT_EQ(shown.title, expected.title);
    EXPECT_EQ(shown.icon, expected.icon);
    EXPECT_EQ(shown.buttons, expected.buttons);
    EXPECT_EQ(shown.defaultButton, expected.defaultButton);
}

} // namespace tolvinpt::test
