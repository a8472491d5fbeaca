#include "platform/widgets/window_shortcuts.h"

#include "tests/support/operator_input.h"

#include <QAction>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace tolvinpt::test {
namespace {

// Claims the override of every Ctrl key, as the X11 key bindings make a text field do for Ctrl+E.
class ClaimsCtrlKeys final : public QObject
{
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::ShortcutOverride &&
            static_cast<QKeyEvent*>(event)->modifiers() == Qt::ControlModifier)
            event->accept();
        return false;
    }
};

// A field that claims Ctrl+E still lets the window's shown command on Ctrl+E run; a hidden menu's or a
// disabled command does not, and the field then keeps the key.
TEST(WindowShortcuts, TheWindowsShownCommandsComeBeforeTheFieldsKeys)
{
    QDialog window;
    auto* bar = new QMenuBar(&window);
    QAction* shown = bar->addMenu(QStringLiteral("shown"))->addAction(QStringLiteral("end"));
    QMenu* hiddenMenu = bar->addMenu(QStringLiteral("hidden"));
    QAction* hidden = hiddenMenu->addAction(QStringLiteral("new"));
    QAction* disabled = bar->addMenu(QStringLiteral("off"))->addAction(QStringLiteral("save"));
    shown->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    hidden->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_N));
    disabled->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    hiddenMenu->menuAction()->setVisible(false);
    disabled->setEnabled(false);
    auto* layout = new QVBoxLayout(&window);
    layout->setMenuBar(bar);
    auto* field = new QLineEdit(&window);
    layout->addWidget(field);
    putWindowShortcutsFirst(&window);
    ClaimsCtrlKeys claims; // installed last: it sees the override first, as the field's own handling would
    field->installEventFilter(&claims);
    ASSERT_TRUE(showActive(&window));
    field->setFocus();

    const std::tuple<QAction*, Qt::Key, int> cases[] = {
        {shown, Qt::Key_E, 1}, {hidden, Qt::Key_N, 0}, {disabled, Qt::Key_S, 0}};
    for (const auto& [action, key, runs] : cases) {
        SCOPED_TRACE(action->text().toStdString());
        QSignalSpy triggered(action, &QAction::triggered);
        QTest::keyClick(field, key, Qt::ControlModifier);
        EXPECT_EQ(triggered.count(), runs);
    }
}

} // namespace
} // namespace tolvinpt::test
