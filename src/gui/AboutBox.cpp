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
    box->setWindowTitle(u"About Vantle X"_s);
    box->setIconPixmap(QApplication::windowIcon().pixmap(96, 96));
    box->setTextFormat(Qt::RichText);
    box->setText(u"<h3>Vantle X</h3><p>Version %1 (%2)</p>"_s.arg(
        bundle.infoString(u"CFBundleShortVersionString"_s).toHtmlEscaped(),
        bundle.infoString(u"CFBundleVersion"_s).toHtmlEscaped()));
    box->setInformativeText(u"Erases the traces that web browsers and mail clients leave in your home folder: "
                            u"caches, history, cookies, site data, mail caches, junk and trash."_s);
    box->setStandardButtons(QMessageBox::Ok);
    box->open();
    return box;
}

} // namespace AboutBox
