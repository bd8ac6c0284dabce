#include "settings/Preferences.h"

#include "platform/LoginItem.h"
#include "platform/UnchangedLoginItem.h"
#include "settings/ApplicationList.h"
#include "settings/PreferenceKeys.h"
#include "settings/UserDefaults.h"

#include <memory>

namespace {

std::mutex gSharedMutex;
std::unique_ptr<LoginItem> gSharedLoginItem;
std::unique_ptr<Preferences> gShared;

bool boolValue(const QVariantMap& values, QLatin1StringView key)
{
    return values.value(key).toBool();
}

} // namespace

Preferences::Preferences(UserDefaults& defaults, LoginItem& loginItem, QObject* parent)
    : QObject(parent)
    , mDefaults(defaults)
    , mLoginItem(loginItem)
{
    mCurValues = preferencesFromDefaults();
    mDisplayedValues = mCurValues;
}

Preferences::~Preferences() = default;

Preferences& Preferences::sharedInstance()
{
    {
        std::lock_guard lock(gSharedMutex);
        if (gShared)
            return *gShared;
    }
    return createSharedInstance(UserDefaults::standardUserDefaults(), std::make_unique<UnchangedLoginItem>());
}

Preferences& Preferences::createSharedInstance(UserDefaults& defaults, std::unique_ptr<LoginItem> loginItem)
{
    std::lock_guard lock(gSharedMutex);
    if (!gShared) {
        gSharedLoginItem = std::move(loginItem);
        gShared = std::make_unique<Preferences>(defaults, *gSharedLoginItem);
    }
    return *gShared;
}

void Preferences::resetSharedInstanceForTesting()
{
    std::lock_guard lock(gSharedMutex);
    gShared.reset();
    gSharedLoginItem.reset();
}

QVariant Preferences::objectForKey(const QString& key)
{
    return sharedInstance().valueForKey(key);
}

const QVariantMap& Preferences::factoryValues()
{
    static const QVariantMap values = [] {
        QVariantMap map;
        for (const PreferenceDefinition& definition : kPreferenceTable)
            map.insert(definition.key, factoryValue(definition));
        return map;
    }();
    return values;
}

QVariantMap Preferences::preferencesFromDefaults()
{
    QVariantMap values;
    for (const PreferenceDefinition& definition : kPreferenceTable) {
        const QString key = definition.key;
        if (!mDefaults.objectForKey(key).isValid())
            values.insert(key, factoryValue(definition));
        else if (definition.type == PreferenceType::Boolean)
            values.insert(key, mDefaults.boolForKey(key));
        else
            values.insert(key, mDefaults.integerForKey(key));
    }
    if (boolValue(values, PreferenceKey::Tarnhold))
        synchronizeLoginItem(boolValue(values, PreferenceKey::HideAfterShredding));
    return values;
}

void Preferences::synchronizeLoginItem(bool hidden)
{
    const QString applicationPath = mLoginItem.applicationPath();
    if (mLoginItem.path() == applicationPath)
        return;
    mLoginItem.remove();
    mLoginItem.create(applicationPath, hidden);
}

void Preferences::savePreferencesToDefaults(const QVariantMap& values)
{
    for (const PreferenceDefinition& definition : kPreferenceTable) {
        const QString key = definition.key;
        const QVariant value = values.value(key);
        if (value == factoryValue(definition))
            mDefaults.removeObjectForKey(key);
        else if (definition.type == PreferenceType::Boolean)
            mDefaults.setBool(value.toBool(), key);
        else
            mDefaults.setInteger(value.toLongLong(), key);
    }
    mDefaults.synchronize();
}

QVariantMap Preferences::preferences() const
{
    std::lock_guard lock(mMutex);
    return mCurValues;
}

QVariant Preferences::valueForKey(const QString& key) const
{
    std::lock_guard lock(mMutex);
    return mCurValues.value(key);
}

QVariantMap Preferences::displayedValues() const
{
    std::lock_guard lock(mMutex);
    return mDisplayedValues;
}

void Preferences::commitDisplayedValues()
{
    QVariantMap committed;
    {
        std::lock_guard lock(mMutex);
        mCurValues = mDisplayedValues;
        committed = mCurValues;
    }
    savePreferencesToDefaults(committed);
}

void Preferences::discardDisplayedValues()
{
    {
        std::lock_guard lock(mMutex);
        mDisplayedValues = mCurValues;
    }
    emit displayedValuesChanged();
}

void Preferences::revertToDefault()
{
    {
        std::lock_guard lock(mMutex);
        mCurValues = factoryValues();
    }
    discardDisplayedValues();
}

bool Preferences::prefsConfirmShredding() const
{
    return valueForKey(PreferenceKey::ConfirmShredding).toBool();
}

bool Preferences::prefsDoDSanitize() const
{
    return valueForKey(PreferenceKey::DoDSanitize).toBool();
}

bool Preferences::prefsNSA() const
{
    return valueForKey(PreferenceKey::NSA).toBool();
}

SettingsPanelState Preferences::panelState() const
{
    return panelStateFromValues(displayedValues());
}

void Preferences::miscChanged(const SettingsPanelState& panel)
{
    const QVariantMap previous = displayedValues();
    const bool wasWatching = boolValue(previous, PreferenceKey::Tarnhold);
    const bool wasHidden = boolValue(previous, PreferenceKey::HideAfterShredding);
    const bool watching = panel.checkBoxes.value(PreferenceKey::Tarnhold);
    const bool hidden = panel.checkBoxes.value(PreferenceKey::HideAfterShredding);

    {
        std::lock_guard lock(mMutex);
        mDisplayedValues = valuesFromPanelState(panel);
    }
    commitDisplayedValues();

    if (wasWatching && !watching)
        mLoginItem.remove();
    else if (!wasWatching && watching)
        mLoginItem.create(mLoginItem.applicationPath(), hidden);
    if (wasHidden != hidden)
        mLoginItem.setHidden(hidden);
}

void Preferences::loadBrowserInfo()
{
    std::lock_guard lock(mMutex);
    if (mEnableBrowsers)
        return;
    // A list edited by hand keeps its names; a value that is no list at all counts as absent.
    const QVariant stored = mDefaults.objectForKey(PreferenceKey::EnabledBrowsers);
    if (stored.typeId() != QMetaType::QVariantList && stored.typeId() != QMetaType::QStringList) {
        mEnableBrowsers = ApplicationList::allNames();
        return;
    }
    mEnableBrowsers.emplace();
    for (const QVariant& item : stored.toList()) {
        if (item.typeId() == QMetaType::QString)
            mEnableBrowsers->append(item.toString());
    }
}

bool Preferences::browserIsEnabled(const QString& name)
{
    return enabledBrowsers().contains(name);
}

QStringList Preferences::enabledBrowsers()
{
    loadBrowserInfo();
    std::lock_guard lock(mMutex);
    return *mEnableBrowsers;
}

void Preferences::enableChanged(const QString& name)
{
    loadBrowserInfo();
    QStringList list;
    {
        std::lock_guard lock(mMutex);
        ApplicationList::toggle(*mEnableBrowsers, name);
        list = *mEnableBrowsers;
    }
    mDefaults.setObject(list, PreferenceKey::EnabledBrowsers);
    mDefaults.synchronize();
    emit enabledBrowsersChanged();
}
