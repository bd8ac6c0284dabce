#pragma once

#include <QMessageBox>
#include <QString>

#include <functional>

// Alerts in the classic form: a title, a message and up to three buttons, the
// default one (answers 1; Return presses it), the alternate (answers 0) and an
// optional other (answers -1). Each button has a role that places it where the
// platform puts such a button; the one with the reject role answers Escape.
namespace AlertSheet {

enum ReturnCode { DefaultReturn = 1, AlternateReturn = 0, OtherReturn = -1 };

struct Button {
    QString text;
    QMessageBox::ButtonRole role;
};

struct Alert {
    QString title;
    QString message;
    Button defaultButton;
    Button alternateButton;
    Button otherButton; // none when its text is empty
};

// Shown as a sheet on window (modal to that window only); done gets the answer
// once the sheet has closed.
QMessageBox* begin(QWidget* window, const Alert& alert, std::function<void(int returnCode)> done);

// Modal to the whole application; waits for the answer.
int run(QWidget* parent, const Alert& alert);

} // namespace AlertSheet
