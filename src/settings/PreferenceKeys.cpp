#include "settings/PreferenceKeys.h"

const PreferenceDefinition* findPreference(QStringView key)
{
    for (const PreferenceDefinition& definition : kPreferenceTable) {
        if (definition.key == key)
            return &definition;
    }
    return nullptr;
}

QVariant factoryValue(const PreferenceDefinition& definition)
{
    if (definition.type == PreferenceType::Boolean)
        return definition.factoryValue != 0;
    return definition.factoryValue;
}

bool isSelectableMenuIndex(const PreferenceDefinition& definition, qint64 index)
{
    return definition.type == PreferenceType::Integer && index >= 0 && index < definition.menuItemCount &&
           index != definition.menuSeparatorIndex;
}
