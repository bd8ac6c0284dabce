#include "gui/GeneralPane.h"

#include "gui/PaneNote.h"
#include "gui/PreferenceControls.h"
#include "settings/PreferenceKeys.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct Option {
    QLatin1StringView key;
    const char16_t* title;
};

const Option kRunOptions[] = {
    {PreferenceKey::Tarnhold, u"Tarnhold watch: shred when a watched browser or mail application quits"},
    {PreferenceKey::HideAfterShredding, u"Hide Vantle X after shredding"},
    {PreferenceKey::ActivityLog, u"Keep an activity log of each run"},
    {PreferenceKey::ConfirmShredding, u"Ask before shredding"},
};

const Option kAlsoErase[] = {
    {PreferenceKey::ShredMailCache, u"Mail caches"},
    {PreferenceKey::ShredAppleMailJunk, u"Apple Mail junk mail"},
    {PreferenceKey::ShredMailTrash, u"Mail trash"},
    {PreferenceKey::ShredQuicktimeCache, u"QuickTime cache (when shredding before log out, shut down or restart)"},
};

QGroupBox* group(const QString& title, const auto& options, PreferenceControls& controls, QWidget* parent)
{
    auto* box = new QGroupBox(title, parent);
    auto* layout = new QVBoxLayout(box);
    for (const Option& option : options)
        layout->addWidget(controls.addCheckBox(option.key, QString::fromUtf16(option.title)));
    return box;
}

} // namespace

GeneralPane::GeneralPane(PreferenceControls& controls, QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    QGroupBox* runs = group(u"Runs"_s, kRunOptions, controls, this);
    runs->layout()->addWidget(paneNote(u"While the watch is on, Vantle X starts when you log in.\n"
                                       u"The activity log is ~/Library/Logs/Vantle X Log.txt."_s,
                                       runs));
    layout->addWidget(runs);
    layout->addWidget(group(u"Also erase"_s, kAlsoErase, controls, this));
    layout->addStretch();
}
