#include "campaigns/operator_robot.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace tolvinpt::campaign {

OperatorRobot::OperatorRobot()
{
    // Polling also reaches the nested event loop of a box or dialog that a handler opened.
    m_timer.setInterval(2);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { look(); });
    m_timer.start();
}

void OperatorRobot::when(const QString& title, std::function<void(QWidget&)> act)
{
    m_title = title;
    m_act = std::move(act);
}

QStringList OperatorRobot::takeMessages()
{
    return std::exchange(m_messages, {});
}

void OperatorRobot::look()
{
    QWidget* top = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(top)) {
        m_messages.append(box->text());
        QAbstractButton* chosen = m_answer != QMessageBox::NoButton ? box->button(m_answer) : nullptr;
        (chosen ? chosen : box->defaultButton())->click();
    } else if (top && m_act && top->windowTitle() == m_title) {
        // Run apart from this timer, which Qt does not fire again while its slot runs: a box the handler
        // opens must still be answered.
        QTimer::singleShot(0, top, [top, act = std::exchange(m_act, {})] { act(*top); });
    }
}

void OperatorRobot::type(QWidget& window, const QString& field, const QString& text)
{
    auto* edit = window.findChild<QLineEdit*>(field);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

void OperatorRobot::visit(QWidget& window, const QString& field)
{
    window.findChild<QWidget*>(field)->setFocus();
}

void OperatorRobot::run(QWidget& window, const QString& action)
{
    window.findChild<QAction*>(action)->trigger();
}

void OperatorRobot::press(QWidget& window, const QString& button)
{
    window.findChild<QAbstractButton*>(button)->click();
}

QString OperatorRobot::text(QWidget& window, const QString& field)
{
    return window.findChild<QLineEdit*>(field)->text();
}

} // namespace tolvinpt::campaign
