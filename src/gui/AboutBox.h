#pragma once

class Bundle;
class QMessageBox;
class QWidget;

namespace AboutBox {

// The About window: the name, and the version and build from the bundle's
// information dictionary.
QMessageBox* show(QWidget* parent, const Bundle& bundle);

} // namespace AboutBox
