#include "forms/assign_text.h"

#include "platform/widgets/guarded.h"

#include <QLineEdit>

#include <algorithm>

namespace tolvinpt {
namespace {

// Remembers a box's own limit while its maxLength is lifted for a longer text, and lowers the
// maxLength with the text as the operator shortens it, down to the limit.
class LimitKeeper final : public QObject
{
    Q_OBJECT

public:
    explicit LimitKeeper(QLineEdit* box) : QObject(box), limit(box->maxLength()), m_box(box)
    {
        connect(box, &QLineEdit::textChanged, this, guarded(this, &LimitKeeper::follow));
    }

    const int limit;

private:
    void follow()
    {
        const int target = std::max(limit, int(m_box->text().size()));
        if (target >= m_box->maxLength())
            return;
        // QLineEdit re-sets its text on a new maxLength, which moves the caret to the end.
        const int cursor = m_box->cursorPosition();
        const int start = m_box->selectionStart();
        const int length = m_box->selectionLength();
        m_box->setMaxLength(target);
        if (start < 0)
            m_box->setCursorPosition(cursor);
        else if (cursor == start)
            m_box->setSelection(start + length, -length);
        else
            m_box->setSelection(start, length);
    }

    QLineEdit* m_box;
};

LimitKeeper* keeperOf(const QLineEdit* box)
{
    return box->findChild<LimitKeeper*>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

void assignText(QLineEdit* box, const QString& text)
{
    if (text.size() > box->maxLength()) {
        if (!keeperOf(box))
            new LimitKeeper(box);
        box->setMaxLength(int(text.size()));
    }
    box->setText(text);
}

int maxLengthOf(const QLineEdit* box)
{
    const LimitKeeper* keeper = keeperOf(box);
    return keeper ? keeper->limit : box->maxLength();
}

} // namespace tolvinpt

#include "assign_text.moc"
