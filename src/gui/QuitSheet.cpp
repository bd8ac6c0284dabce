#include "gui/QuitSheet.h"

using namespace Qt::StringLiterals;

namespace QuitSheet {

const AlertSheet::Alert& alert()
{
    static const AlertSheet::Alert sheet{
        u"Quit"_s,
        u"Quitting Vantle will interrupt Tarnhold watch and Vantle will not run automatically when you quit "
        u"from "
        u"your web browser or email application. Would you prefer to hide Vantle in the Dock?"_s,
        {u"Hide"_s, QMessageBox::AcceptRole},
        {u"Quit"_s, QMessageBox::DestructiveRole},
        {u"Cancel"_s, QMessageBox::RejectRole},
    };
    return sheet;
}

} // namespace QuitSheet
