// Every catalogued control is built as catalogued: name, container, caption, alignment, input method,
// design state and place; the limits are as stated, and every tooltip quotes its limit.
#include "form_fixture.h"
#include "stated_fields.h"

#include "forms/form_builder.h"
#include "platform/widgets/field_state.h"
#include "platform/widgets/twips.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>

using namespace tolvinpt;

TEST(CatalogueTest, EveryControlIsBuiltAsCatalogued)
{
    QWidget client;
    const Twips twips = Twips::forScreenOf(&client);
    const ControlMap controls = buildControls(&client, frmdata::controls(), twips);
    const QPalette palette = QApplication::palette();
    QSet<QString> names;
    for (const auto& row : frmdata::controls()) {
        const QString name = row.name.toString();
        SCOPED_TRACE(name.toStdString());
        EXPECT_FALSE(names.contains(name)) << "catalogued twice";
        names.insert(name);

        QWidget* w = controls.value(name);
        ASSERT_TRUE(w);
        EXPECT_EQ(w->objectName(), name);
        EXPECT_EQ(w->parentWidget()->objectName(), row.container.toString());
        auto* combo = qobject_cast<QComboBox*>(w);
        EXPECT_EQ(combo && combo->isEditable(), row.kind == ControlKind::EditableCombo);
        EXPECT_TRUE(!combo || !combo->isEditable() ||
                    (combo->insertPolicy() == QComboBox::NoInsert && !combo->completer()));
        auto* button = qobject_cast<QPushButton*>(w);
        EXPECT_TRUE(!button || (!button->autoDefault() && !button->isDefault()))
            << "Enter never presses a button";
        EXPECT_TRUE(row.kind != ControlKind::Line || qobject_cast<QFrame*>(w)->frameShape() == QFrame::HLine);
        EXPECT_EQ(w->property(qobject_cast<QGroupBox*>(w) ? "title" : "text").toString(),
                  row.caption.toString());
        if (auto* edit = qobject_cast<QLineEdit*>(w)) {
            EXPECT_EQ(edit->alignment() & Qt::AlignHorizontal_Mask,
                      row.state & design::Right ? Qt::AlignRight : Qt::AlignLeft);
        }
        // Input method, design state; a highlighted frame caption does not colour the frame's contents.
        const bool imeOn =
            w->testAttribute(Qt::WA_InputMethodEnabled) ||
            (combo && combo->lineEdit() && combo->lineEdit()->testAttribute(Qt::WA_InputMethodEnabled));
        EXPECT_EQ(bool(w->inputMethodHints() & Qt::ImhPreferLatin), row.input == InputMode::Off);
        EXPECT_TRUE(row.input != InputMode::Hiragana || imeOn);
        EXPECT_TRUE(row.input != InputMode::Disabled || !imeOn);
        EXPECT_EQ(w->isHidden(), bool(row.state & design::Hidden));
        EXPECT_EQ(w->isEnabled(), !(row.state & design::Disabled));
        EXPECT_EQ(isLocked(w), bool(row.state & (design::Grey | design::Locked)));
        EXPECT_EQ(isTabStop(w), takesFocus(row.kind) && !(row.state & design::Grey));
        EXPECT_TRUE(!(row.state & design::Grey) ||
                    w->palette().color(QPalette::Base) == palette.color(QPalette::Button));
        EXPECT_EQ(w->palette().color(QPalette::WindowText) == palette.color(QPalette::Highlight),
                  bool(row.state & design::Highlight));

        // Placed where designed; captioned controls may grow around their design so nothing is clipped.
        const QRect designed = twips.rect(row.pos.left, row.pos.top, row.pos.width, row.pos.height);
        if (row.kind == ControlKind::TabStrip)
            EXPECT_EQ(w->geometry().topLeft(), designed.topLeft());
        else
            EXPECT_TRUE(w->geometry().contains(designed));
        if (auto* label = qobject_cast<QLabel*>(w)) {
            EXPECT_GE(w->width(), label->text().isEmpty() ? 0 : label->sizeHint().width());
        }
    }
    EXPECT_EQ(names.size(), controls.size());
}

using StatedLimitsTest = test::FormTest;

TEST_F(StatedLimitsTest, LimitsAreAsStatedAndEveryTooltipQuotesItsFieldsLimitAndClass)
{
    load();
    int quoted = 0;
    for (const test::StatedField& field : test::StatedFields) {
        const QString name = field.name.toString();
        SCOPED_TRACE(name.toStdString());
        if (QLineEdit* box = text(name)) {
            EXPECT_EQ(box->maxLength(), field.maxLength > 0 ? field.maxLength : 32767);
        }
        // "品名 (半角： 30 文字)": half-width (半角) or full-width (漢字, 全角), and the limit.
        const auto quote = QRegularExpression(QStringLiteral("\\((半角|漢字|全角)： (\\d+) 文字\\)$"))
                               .match(control(name)->toolTip());
        if (!quote.hasMatch())
            continue;
        ++quoted;
        EXPECT_EQ(quote.captured(2).toInt(), field.maxLength);
        EXPECT_EQ(quote.captured(1) == u"半角", field.width == test::Half);
    }
    EXPECT_EQ(quoted, 9);
}
