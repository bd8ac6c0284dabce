#pragma once

#include <QMap>
#include <QString>
#include <QVariantMap>

// What the settings panel's controls show, keyed by setting: the state of each
// check box and the selected index of each pop-up menu. The box for
// KeepSafariTopSites is worded as erasing Top Sites, so it is on when the
// setting is NO.
struct SettingsPanelState {
    QMap<QString, bool> checkBoxes;
    QMap<QString, qint64> popUpIndexes;

    friend bool operator==(const SettingsPanelState&, const SettingsPanelState&) = default;
};

// The controls that show values, and the values that the controls set.
SettingsPanelState panelStateFromValues(const QVariantMap& values);
QVariantMap valuesFromPanelState(const SettingsPanelState& panel);
