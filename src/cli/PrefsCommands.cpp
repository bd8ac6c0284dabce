#include "cli/PrefsCommands.h"

#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "settings/SettingsPanelState.h"

#include <CLI/CLI.hpp>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

QString displayValue(const PreferenceDefinition& definition, const QVariant& value)
{
    if (definition.type == PreferenceType::Boolean)
        return value.toBool() ? u"YES"_s : u"NO"_s;
    return QString::number(value.toLongLong());
}

std::optional<bool> parseBoolean(const QString& text)
{
    const QString word = text.toLower();
    if (word == "yes"_L1 || word == "true"_L1 || word == "1"_L1)
        return true;
    if (word == "no"_L1 || word == "false"_L1 || word == "0"_L1)
        return false;
    return std::nullopt;
}

std::optional<qint64> parseInteger(const QString& text)
{
    bool ok = false;
    const qint64 value = text.toLongLong(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

QString selectableIndexes(const PreferenceDefinition& definition)
{
    QStringList ranges;
    qint64 first = -1;
    for (qint64 index = 0; index <= definition.menuItemCount; ++index) {
        const bool selectable = isSelectableMenuIndex(definition, index);
        if (selectable && first < 0)
            first = index;
        if (!selectable && first >= 0) {
            const qint64 last = index - 1;
            ranges.append(first == last ? QString::number(first) : Cli::tr("%1 to %2").arg(first).arg(last));
            first = -1;
        }
    }
    return ranges.join(Cli::tr(" or "));
}

const PreferenceDefinition* knownKey(const QString& key)
{
    return findPreference(key);
}

int refuseUnknownKey(const QString& key)
{
    return refuse(Cli::tr("unknown setting \"%1\" (see 'vantle-cli prefs list')").arg(key));
}

int listPreferences()
{
    const QVariantMap values = Preferences::sharedInstance().preferences();
    for (const PreferenceDefinition& definition : kPreferenceTable) {
        const QVariant value = values.value(definition.key);
        const bool isFactory = value == factoryValue(definition);
        printLine(u"%1 %2 %3"_s.arg(QString(definition.key), -20)
                      .arg(displayValue(definition, value), -4)
                      .arg(isFactory ? Cli::tr("factory") : Cli::tr("changed")));
    }
    return 0;
}

int getPreference(const QString& key)
{
    const PreferenceDefinition* definition = knownKey(key);
    if (!definition)
        return refuseUnknownKey(key);
    printLine(displayValue(*definition, Preferences::sharedInstance().valueForKey(key)));
    return 0;
}

int setPreference(const QString& key, const QString& text)
{
    const PreferenceDefinition* definition = knownKey(key);
    if (!definition)
        return refuseUnknownKey(key);

    QVariant value;
    if (definition->type == PreferenceType::Boolean) {
        const auto parsed = parseBoolean(text);
        if (!parsed)
            return refuse(Cli::tr("%1 takes YES or NO, not \"%2\"").arg(key, text));
        value = *parsed;
    } else {
        const auto parsed = parseInteger(text);
        if (!parsed || !isSelectableMenuIndex(*definition, *parsed))
            return refuse(Cli::tr("%1 takes %2, not \"%3\"").arg(key, selectableIndexes(*definition), text));
        value = *parsed;
    }

    // Exactly what the settings panel does when one of its controls changes.
    Preferences& preferences = Preferences::sharedInstance();
    QVariantMap values = preferences.displayedValues();
    values.insert(key, value);
    preferences.miscChanged(panelStateFromValues(values));
    return 0;
}

int resetPreferences()
{
    Preferences::sharedInstance().miscChanged(panelStateFromValues(Preferences::factoryValues()));
    return 0;
}

} // namespace

void addPrefsCommands(CLI::App& app, CommandAction& action)
{
    CLI::App* prefs = app.add_subcommand("prefs", Cli::tr("Show or change the settings").toStdString());
    prefs->require_subcommand(1);

    prefs
        ->add_subcommand("list", Cli::tr("Every setting, its value, and whether it is the factory value").toStdString())
        ->callback([&action] { action = listPreferences; });

    auto key = std::make_shared<std::string>();
    auto value = std::make_shared<std::string>();

    CLI::App* get = prefs->add_subcommand("get", Cli::tr("Print the value of one setting").toStdString());
    get->add_option("KEY", *key, Cli::tr("Setting name").toStdString())->required();
    get->callback([&action, key] { action = [key] { return getPreference(QString::fromStdString(*key)); }; });

    CLI::App* set =
        prefs->add_subcommand("set", Cli::tr("Change one setting (booleans: YES/NO/true/false/1/0)").toStdString());
    set->add_option("KEY", *key, Cli::tr("Setting name").toStdString())->required();
    set->add_option("VALUE", *value, Cli::tr("New value").toStdString())->required();
    set->callback([&action, key, value] {
        action = [key, value] { return setPreference(QString::fromStdString(*key), QString::fromStdString(*value)); };
    });

    prefs->add_subcommand("reset", Cli::tr("Put every setting back to its factory value").toStdString())
        ->callback([&action] { action = resetPreferences; });
}
