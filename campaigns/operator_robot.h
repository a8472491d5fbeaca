#pragma once

// Plays the operator in the modal windows the component shows, from inside its entry calls: a handler
// for a window runs once the window is the active modal one; a message box gets its default button and
// its text is kept. Offscreen.

#include <QMessageBox>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

class QWidget;

namespace tolvinpt::campaign {

inline const QString EntryFormTitle = QStringLiteral("納品ﾃﾞｰﾀの入力");
inline const QString SplitDialogTitle = QStringLiteral("納品ﾃﾞｰﾀの分割");
inline const QString PackageEditorTitle = QStringLiteral("個別 入数情報");

class OperatorRobot
{
public:
    OperatorRobot();

    // Runs `act` the next time a modal window titled `title` is active (once).
    void when(const QString& title, std::function<void(QWidget&)> act);
    // The texts of the message boxes answered since the last call.
    QStringList takeMessages();
    // Answers boxes that have `button` with it rather than with their default (NoButton: the default).
    void answerWith(QMessageBox::StandardButton button) { m_answer = button; }

    // The operator's hands: types `text` over the field's whole text; runs a menu command.
    static void type(QWidget& window, const QString& field, const QString& text);
    static void visit(QWidget& window, const QString& field);
    static void run(QWidget& window, const QString& action);
    static void press(QWidget& window, const QString& button);
    static QString text(QWidget& window, const QString& field);

private:
    void look();

    QTimer m_timer;
    QString m_title;
    std::function<void(QWidget&)> m_act;
    QStringList m_messages;
    QMessageBox::StandardButton m_answer = QMessageBox::NoButton;
};

} // namespace tolvinpt::campaign
