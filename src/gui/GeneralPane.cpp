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
    const char* title;
};

const Option kRunOptions[] = {
    {PreferenceKey::Tarnhold,
     QT_TRANSLATE_NOOP("GeneralPane", "Tarnhold watch: shred when a watched browser or mail application quits")},
    {PreferenceKey::HideAfterShredding, QT_TRANSLATE_NOOP("GeneralPane", "Hide Vantle X after shredding")},
    {PreferenceKey::ActivityLog, QT_TRANSLATE_NOOP("GeneralPane", "Keep an activity log of each run")},
    {PreferenceKey::ConfirmShredding, QT_TRANSLATE_NOOP("GeneralPane", "Ask before shredding")},
};

const Option kAlsoErase[] = {
    {PreferenceKey::ShredMailCache, QT_TRANSLATE_NOOP("GeneralPane", "Mail caches")},
    {PreferenceKey::ShredAppleMailJunk, QT_TRANSLATE_NOOP("GeneralPane", "Apple Mail junk mail")},
    {PreferenceKey::ShredMailTrash, QT_TRANSLATE_NOOP("GeneralPane", "Mail trash")},
    {PreferenceKey::ShredQuicktimeCache,
     QT_TRANSLATE_NOOP("GeneralPane", "QuickTime cache (when shredding before log out, shut down or restart)")},
};

QGroupBox* group(const QString& title, const auto& options, PreferenceControls& controls, QWidget* parent)
{
    auto* box = new QGroupBox(title, parent);
    auto* layout = new QVBoxLayout(box);
    for (const Option& option : options)
        layout->addWidget(controls.addCheckBox(option.key, GeneralPane::tr(option.title)));
    return box;
}

} // namespace

GeneralPane::GeneralPane(PreferenceControls& controls, QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    QGroupBox* runs = group(tr("Runs"), kRunOptions, controls, this);
    runs->layout()->addWidget(
        paneNote(tr("While the watch is on, Vantle X starts when you log in, and the watch with it.\n"
                    "The activity log is ~/Library/Logs/Vantle X Log.txt."),
                 runs));
    layout->addWidget(runs);
    layout->addWidget(group(tr("Also erase"), kAlsoErase, controls, this));
    layout->addStretch();
}
