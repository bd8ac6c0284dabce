#include "gui/AlertSheet.h"

#include <QApplication>
#include <QPushButton>

namespace AlertSheet {

namespace {

QMessageBox* create(QWidget* parent, const Alert& alert)
{
    auto* box = new QMessageBox(parent);
    box->setWindowTitle(alert.title);
#ifdef Q_OS_MACOS
    // A sheet has no title bar: the title is the alert's bold first line there.
    box->setText(alert.title);
    box->setInformativeText(alert.message);
#else
    box->setText(alert.message);
#endif
    const QIcon icon = QApplication::windowIcon();
    if (!icon.isNull())
        box->setIconPixmap(icon.pixmap(64, 64));

    const std::pair<const Button*, int> buttons[] = {
        {&alert.defaultButton, DefaultReturn},
        {&alert.alternateButton, AlternateReturn},
        {&alert.otherButton, OtherReturn},
    };
    for (const auto& [button, code] : buttons) {
        if (button->text.isEmpty())
            continue;
        QPushButton* added = box->addButton(button->text, button->role);
        added->setProperty("returnCode", code);
        if (code == DefaultReturn)
            box->setDefaultButton(added);
        if (button->role == QMessageBox::RejectRole)
            box->setEscapeButton(added);
    }
    return box;
}

int returnCodeOf(const QMessageBox* box)
{
    const QAbstractButton* clicked = box->clickedButton();
    return clicked ? clicked->property("returnCode").toInt() : OtherReturn;
}

} // namespace

QMessageBox* begin(QWidget* window, const Alert& alert, std::function<void(int)> done)
{
    QMessageBox* box = create(window, alert);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    QObject::connect(box, &QMessageBox::finished, box, [box, done = std::move(done)](int) { done(returnCodeOf(box)); });
    box->open();
    return box;
}

int run(QWidget* parent, const Alert& alert)
{
    QMessageBox* box = create(parent, alert);
    box->setWindowModality(Qt::ApplicationModal);
    box->exec();
    const int code = returnCodeOf(box);
    delete box;
    return code;
}

} // namespace AlertSheet
