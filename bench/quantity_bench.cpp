// Measures the per-package quantity editor against a bare grid, in the same run:
//   tolvinpt-bench-quantity   (QT_QPA_PLATFORM=offscreen)
// 1. Opening: the editor built with 100 packages, shown, until its grid's first paint has been done,
//    against a bare QDialog of the same size and font with a QTableWidget of 101 rows of the same texts.
// 2. A keystroke in a cell: a digit typed over a cell (the cell editor opens) and the repaint it causes.
// 3. Enter: the cell stored, the sum and the total updated, the next row active, and the repaint.
// Both sides take turns at going first after one warm-up each; medians.
#include "bench/counted_messages.h"
#include "bench/timing.h"
#include "forms/form_font.h"
#include "forms/frmQuantity/frmQuantity.h"
#include "forms/frmQuantity/package_grid.h"
#include "platform/widgets/messages.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableWidget>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using namespace tolvinpt;

namespace {

constexpr int OpenRounds = 41;
constexpr int KeyRounds = 301;
constexpr int Row = 49; // package 50: the grid scrolls to it
constexpr double OpenTargetMs = 100;
constexpr double KeyTargetMs = 16; // one frame at 60 Hz

PackageQuantities hundredPackages()
{
    PackageQuantities packages{};
    for (int i = 0; i < MaxPackages; ++i)
        packages[std::size_t(i)] = Currency::fromRaw(10000 + i * 125);
    return packages;
}

// Counts the paints of a widget.
class PaintCounter final : public QObject
{
public:
    explicit PaintCounter(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

// Shows `dialog` and runs the event loop until `painted` has been painted once.
void showUntilPainted(QDialog& dialog, QWidget* painted)
{
    auto* counter = new PaintCounter(painted);
    dialog.show();
    while (counter->paints == 0)
        QCoreApplication::processEvents();
    delete counter;
}

struct Baseline
{
    std::unique_ptr<QDialog> dialog;
    QTableWidget* table;
};

Baseline bareGrid(const frmQuantity& model)
{
    Baseline bare{std::make_unique<QDialog>(), nullptr};
    bare.dialog->setFont(formFont());
    bare.dialog->resize(model.size());
    bare.table = new QTableWidget(MaxPackages + 1, 1, bare.dialog.get());
    bare.table->setGeometry(model.grid()->geometry());
    bare.table->horizontalHeader()->setStretchLastSection(true);
    for (int row = 0; row <= MaxPackages; ++row) {
        auto* item = new QTableWidgetItem(model.grid()->model()->index(row, 0).data().toString());
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        bare.table->setItem(row, 0, item);
    }
    return bare;
}

std::unique_ptr<frmQuantity> openEditor()
{
    auto dialog = std::make_unique<frmQuantity>(hundredPackages());
    dialog->control<QLineEdit>(u"txtDelivery"_s)->setText(u"1000"_s);
    dialog->control<QLineEdit>(u"txtEquality"_s)->setText(u"10.000"_s);
    return dialog;
}

// A key press and release as the window system delivers them to the focus widget. (QTest::keyClick
// waits about 0.1 s when the key opens a cell editor, which would hide what is measured.)
void press(Qt::Key key, const QString& text = {})
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &up);
}

void printRow(const char* operation, double ours, double bare)
{
    std::printf("  %-38s %9.3f %9.3f %8.2f\n", operation, ours, bare, ours / bare);
}

// One keystroke on each side per sample: `key` into the grid's focus widget, then the repaint.
bench::Medians timeKeys(QDialog& ours, QAbstractItemView* ourGrid, QDialog& bare, QAbstractItemView* bareGrid,
                        const std::function<void(QAbstractItemView*)>& before, Qt::Key key,
                        const QString& text)
{
    const auto sample = [&](QDialog& dialog, QAbstractItemView* grid) {
        return [&, grid](std::vector<double>& samples) {
            before(grid);
            samples.push_back(bench::millisecondsOf([&] {
                press(key, text);
                QCoreApplication::processEvents();
                dialog.repaint();
            }));
            // A cell editor left open is closed unchanged.
            if (QWidget* focused = QApplication::focusWidget();
                focused != grid && grid->isAncestorOf(focused))
                press(Qt::Key_Escape);
        };
    };
    return bench::alternate(KeyRounds, sample(ours, ourGrid), sample(bare, bareGrid));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    bench::CountedMessages messages;
    installMessageService(&messages);

    const bench::Medians open = bench::alternate(
        OpenRounds,
        [](std::vector<double>& samples) {
            samples.push_back(bench::millisecondsOf([] {
                auto dialog = openEditor();
                showUntilPainted(*dialog, dialog->grid()->viewport());
            }));
        },
        [](std::vector<double>& samples) {
            const auto model = openEditor();
            samples.push_back(bench::millisecondsOf([&] {
                Baseline bare = bareGrid(*model);
                showUntilPainted(*bare.dialog, bare.table->viewport());
            }));
        });

    // One shown dialog a side for the keys, the cell of package 50 active.
    auto ours = openEditor();
    showUntilPainted(*ours, ours->grid()->viewport());
    Baseline bare = bareGrid(*ours);
    showUntilPainted(*bare.dialog, bare.table->viewport());
    const auto goTo = [&](QAbstractItemView* grid) {
        grid->window()->activateWindow();
        while (QApplication::activeWindow() != grid->window())
            QCoreApplication::processEvents();
        grid->setFocus();
        if (QApplication::focusWidget() != grid)
            std::abort();
        if (grid == ours->grid())
            ours->grid()->goToRow(Row);
        else
            grid->setCurrentIndex(grid->model()->index(Row, 0));
    };
    const auto typeDigit = [&](QAbstractItemView* grid) {
        goTo(grid);
        press(Qt::Key_7, u"7"_s);
    };
    const bench::Medians digit =
        timeKeys(*ours, ours->grid(), *bare.dialog, bare.table, goTo, Qt::Key_8, u"8"_s);
    const bench::Medians enter =
        timeKeys(*ours, ours->grid(), *bare.dialog, bare.table, typeDigit, Qt::Key_Return, u"\r"_s);

    std::printf("quantity editor, 100 packages (median ms): ours / bare QTableWidget\n");
    std::printf("  %-38s %9s %9s %8s\n", "operation", "ours", "bare", "ratio");
    printRow("open until the grid is painted", open.ours, open.raw);
    printRow("type a digit over a cell + repaint", digit.ours, digit.raw);
    printRow("Enter: store, sum, next row + repaint", enter.ours, enter.raw);
    installMessageService(nullptr);
    if (messages.shown != 0) {
        std::fprintf(stderr, "unexpected: %d message boxes or beeps\n", messages.shown);
        return 1;
    }
    const bool met = open.ours < OpenTargetMs && digit.ours < KeyTargetMs && enter.ours < KeyTargetMs;
    std::printf("targets (open < %.0f ms, a key < %.0f ms): %s\n", OpenTargetMs, KeyTargetMs,
                met ? "met" : "missed");
    return met ? 0 : 1;
}
