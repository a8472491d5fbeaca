#pragma once

#include <QTableView>

namespace tolvinpt {

class PackageModel;

// The package grid, worked as a spreadsheet column: the arrow keys, Page Up/Down and Ctrl+Home/End move
// the active cell; typing a number replaces the cell's value, F2 or a double click edits it; Enter
// stores and moves down (Shift+Enter up); Delete and Backspace empty the cell; Tab and Shift+Tab leave
// the grid; Escape undoes a cell being edited; Ctrl+C copies the cell; Ctrl+V pastes a column of
// numbers from the active cell down. The sum row is shown but never becomes the active cell.
//
// The packages stay contiguous. Leaving an empty package cell empties every package below it, and a move
// downwards from it is taken back; a click below the packages lands on the first empty row after them.
class PackageGrid final : public QTableView
{
    Q_OBJECT

public:
    explicit PackageGrid(PackageModel* model, QWidget* parent = nullptr);

    // The active package row (0 to 99).
    int currentRow() const;
    // Makes `row` the active cell as a move of the operator would, with the rules above.
    void goToRow(int row);
    // Fills the rows from the active one down with the lines of `text` (a spreadsheet column: one value a
    // line, CR LF, LF or CR, the first tab-separated field of each, a final line break ignored), each
    // through the cell rule. When the lines do not fit into the rows left, nothing changes and the beep
    // sounds.
    void paste(const QString& text);

    // The cell being edited ends: stored, then the active cell moves down or up, or the focus leaves
    // the grid forwards or backwards. Run by the cell editor on Enter, Shift+Enter, Tab and Shift+Tab.
    enum class AfterEdit { Down, Up, LeaveForward, LeaveBackward };
    void finishEdit(QWidget* editor, AfterEdit after);
    // The cell being edited is given up and the clipboard pasted from it.
    void pasteFromEditor(QWidget* editor);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    bool keyPress(QKeyEvent* event);
    bool mousePress(QMouseEvent* event);
    void leaveCell(int row, int newRow);
    void clickRow(int row);
    void move(AfterEdit after);

    PackageModel* m_model;
    bool m_leaving = false;
    bool m_pressHandled = false;
};

} // namespace tolvinpt
