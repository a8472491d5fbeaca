#include "platform/widgets/select_all.h"

#include "platform/widgets/guarded_event_filter.h"

#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QTimer>

namespace tolvinpt {
namespace {

// Re-applies a selection after the click that entered the field, unless that click dragged a selection
// of its own. Lives for one click.
class ClickSelectionKeeper final : public GuardedEventFilter
{
    Q_OBJECT

public:
    explicit ClickSelectionKeeper(QLineEdit* edit)
        : GuardedEventFilter(edit), m_edit(edit), m_start(edit->selectionStart()),
          m_length(edit->selectionLength())
    {
        edit->installEventFilter(this);
        // The press is delivered right after the focus change; without one there is nothing to keep.
        QTimer::singleShot(0, this, [this] {
            if (!m_pressed)
                finish();
        });
    }

private:
    bool filter(QObject* watched, QEvent* event) override
    {
        if (watched != m_edit)
            return false;
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            m_pressed = true;
            break;
        case QEvent::MouseButtonRelease:
            if (m_pressed && !m_edit->hasSelectedText())
                m_edit->setSelection(m_start, m_length);
            finish();
            break;
        case QEvent::KeyPress:
        case QEvent::FocusOut:
            finish();
            break;
        default:
            break;
        }
        return false;
    }

    void finish()
    {
        m_edit->removeEventFilter(this);
        deleteLater();
    }

    QLineEdit* m_edit;
    int m_start;
    int m_length;
    bool m_pressed = false;
};

} // namespace

void SelectAllText(QLineEdit* box)
{
    box->setSelection(0, box->text().size());
}

void SelectAllText(QComboBox* box)
{
    if (QLineEdit* edit = box->lineEdit())
        SelectAllText(edit);
}

void keepSelectionThroughClick(QLineEdit* edit)
{
    if (!edit->hasSelectedText())
        return;
    if (auto* earlier = edit->findChild<ClickSelectionKeeper*>(QString(), Qt::FindDirectChildrenOnly))
        delete earlier;
    new ClickSelectionKeeper(edit);
}

} // namespace tolvinpt

#include "select_all.moc"
