#include "gui/AboutBox.h"

#include "core/Bundle.h"

#include <QApplication>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace AboutBox {

QMessageBox* show(QWidget* parent, const Bundle& bundle)
{
    auto* box = new QMessageBox(parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setObjectName(u"aboutBox"_s);
    box->setWindowTitle(QCoreApplication::translate("AboutBox", "About Vantle X"));
    box->setIconPixmap(QApplication::windowIcon().pixmap(96, 96));
    box->setTextFormat(Qt::RichText);
    box->setText(QCoreApplication::translate("AboutBox", "<h3>Vantle X</h3><p>Version %1 (%2)</p>")
                     .arg(bundle.infoString(u"CFBundleShortVersionString"_s).toHtmlEscaped(),
                          bundle.infoString(u"CFBundleVersion"_s).toHtmlEscaped()));
    box->setInformativeText(QCoreApplication::translate(
        "AboutBox", "Erases the traces that web browsers and mail clients leave in your home folder: "
                    "caches, history, cookies, site data, mail caches, junk and trash."));
    box->setStandardButtons(QMessageBox::Ok);
    box->open();
    return box;
}

} // namespace AboutBox
