#pragma once

#include <QWidget>

class PreferenceControls;

// How runs start and end (the Tarnhold watch, hiding, the log, the
// confirmation) and the mail and QuickTime categories.
class GeneralPane : public QWidget {
    Q_OBJECT

public:
    explicit GeneralPane(PreferenceControls& controls, QWidget* parent = nullptr);
};
