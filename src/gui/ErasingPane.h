#pragma once

#include <QWidget>

class PreferenceControls;

// What a run erases (the categories) and how it overwrites (passes, pattern,
// the DoD and NSA methods).
class ErasingPane : public QWidget {
    Q_OBJECT

public:
    explicit ErasingPane(PreferenceControls& controls, QWidget* parent = nullptr);
};
