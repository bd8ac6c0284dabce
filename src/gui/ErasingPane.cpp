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
    const char16_t* title;
    bool indented;
};

// The Top Sites box is worded as erasing them: on means KeepSafariTopSites is NO.
const Category kCategories[] = {
    {PreferenceKey::ShredCache, u"Browser caches", false},
    {PreferenceKey::ShredHistory, u"Browsing history", false},
    {PreferenceKey::KeepSafariTopSites, u"Top Sites and speed dial pages with the history", true},
    {PreferenceKey::ShredIEDownloadCache, u"Download lists and download caches", false},
    {PreferenceKey::shredSafariFavicon, u"Site icons and page thumbnails", false},
    {PreferenceKey::ShredCookies, u"Cookies", false},
    {PreferenceKey::ShredPasswords, u"Saved passwords", false},
};

// Index by index as the overwrite engine reads them; index 1 is a separator in
// both menus and never a choice (as a pass count it would mean 0 passes).
QStringList passesItems()
{
    QStringList items{u"Random (1–4 passes)"_s, QString(), u"1 pass"_s};
    for (int passes = 2; passes <= 10; ++passes)
        items.append(u"%1 passes"_s.arg(passes));
    for (int passes = 15; passes <= 35; passes += 5)
        items.append(u"%1 passes"_s.arg(passes));
    return items;
}

QStringList patternItems()
{
    return {u"Random (default)"_s, QString(), u"Random"_s, u"Zeros (0x00)"_s, u"Ones (0xFF)"_s, u"0x55"_s, u"0xAA"_s};
}

} // namespace

ErasingPane::ErasingPane(PreferenceControls& controls, QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);

    auto* what = new QGroupBox(u"Erase"_s, this);
    auto* whatLayout = new QVBoxLayout(what);
    for (const Category& category : kCategories) {
        QCheckBox* box = controls.addCheckBox(category.key, QString::fromUtf16(category.title));
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

    auto* how = new QGroupBox(u"Overwrite"_s, this);
    auto* form = new QFormLayout(how);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->addRow(u"Passes:"_s, controls.addPopUp(PreferenceKey::NumberOfWrites, passesItems()));
    form->addRow(u"Pattern:"_s, controls.addPopUp(PreferenceKey::OverwritePattern, patternItems()));
    form->addRow(controls.addCheckBox(PreferenceKey::DoDSanitize, u"DoD method (at least 3 passes)"_s));
    form->addRow(controls.addCheckBox(PreferenceKey::NSA, u"NSA method (at least 3 passes)"_s));
    form->addRow(paneNote(u"With both methods on, every file is overwritten at least 5 times. More passes take "
                          u"longer and make the erased data harder to recover."_s,
                          how));
    layout->addWidget(how);
    layout->addStretch();
}
