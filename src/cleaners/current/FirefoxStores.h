#pragma once

#include <QString>

class CleanerContext;

void cleanFirefoxStores(CleanerContext& context, const QString& profileFolder);
void cleanThunderbirdIndex(CleanerContext& context, const QString& profileFolder, bool mailboxesErased);
