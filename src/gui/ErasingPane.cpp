#include "gui/ErasingPane.h"

#include "gui/PaneNote.h"
#include "gui/PreferenceControls.h"
#include "settings/PreferenceKeys.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct Category {
    QLatin1StringView key;
    const char* title;
    bool indented;
};

// The Top Sites box is worded as erasing them: on means KeepSafariTopSites is NO.
const Category kCategories[] = {
    {PreferenceKey::ShredCache, QT_TRANSLATE_NOOP("ErasingPane", "Browser caches"), false},
    {PreferenceKey::ShredHistory, QT_TRANSLATE_NOOP("ErasingPane", "Browsing history"), false},
    {PreferenceKey::KeepSafariTopSites,
     QT_TRANSLATE_NOOP("ErasingPane", "Top Sites and speed dial pages with the history"), true},
    {PreferenceKey::ShredIEDownloadCache, QT_TRANSLATE_NOOP("ErasingPane", "Download lists and download caches"),
     false},
    {PreferenceKey::shredSafariFavicon, QT_TRANSLATE_NOOP("ErasingPane", "Site icons and page thumbnails"), false},
    {PreferenceKey::ShredCookies, QT_TRANSLATE_NOOP("ErasingPane", "Cookies"), false},
    {PreferenceKey::ShredPasswords, QT_TRANSLATE_NOOP("ErasingPane", "Saved passwords"), false},
};

// Index by index as the overwrite engine reads them; index 1 is a separator in
// both menus and never a choice (as a pass count it would mean 0 passes).
QStringList passesItems()
{
    QStringList items{ErasingPane::tr("Random (1–4 passes)"), QString(), ErasingPane::tr("1 pass")};
    for (int passes = 2; passes <= 10; ++passes)
        items.append(ErasingPane::tr("%1 passes").arg(passes));
    for (int passes = 15; passes <= 35; passes += 5)
        items.append(ErasingPane::tr("%1 passes").arg(passes));
    return items;
}

QStringList patternItems()
{
    return {ErasingPane::tr("Random (default)"),
            QString(),
            ErasingPane::tr("Random"),
            ErasingPane::tr("Zeros (0x00)"),
            ErasingPane::tr("Ones (0xFF)"),
            u"0x55"_s,
            u"0xAA"_s};
}

} // namespace

ErasingPane::ErasingPane(PreferenceControls& controls, QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);

    auto* what = new QGroupBox(tr("Erase"), this);
    auto* whatLayout = new QVBoxLayout(what);
    for (const Category& category : kCategories) {
        QCheckBox* box = controls.addCheckBox(category.key, tr(category.title));
        if (category.indented) {
            auto* row = new QHBoxLayout;
            row->addSpacing(box->style()->pixelMetric(QStyle::PM_IndicatorWidth) + 8);
            row->addWidget(box);
            whatLayout->addLayout(row);
        } else {
            whatLayout->addWidget(box);
        }
    }
    layout->addWidget(what);

    auto* how = new QGroupBox(tr("Overwrite"), this);
    auto* form = new QFormLayout(how);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->addRow(tr("Pa&sses:"), controls.addPopUp(PreferenceKey::NumberOfWrites, passesItems()));
    form->addRow(tr("Pa&ttern:"), controls.addPopUp(PreferenceKey::OverwritePattern, patternItems()));
    form->addRow(controls.addCheckBox(PreferenceKey::DoDSanitize, tr("DoD method (at least 3 passes)")));
    form->addRow(controls.addCheckBox(PreferenceKey::NSA, tr("NSA method (at least 3 passes)")));
    form->addRow(paneNote(tr("With both methods on, every file is overwritten at least 5 times. More passes take "
                             "longer and make the erased data harder to recover."),
                          how));
    layout->addWidget(how);
    layout->addStretch();
}
