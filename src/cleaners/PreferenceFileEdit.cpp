#include "cleaners/PreferenceFileEdit.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/JsonPreferenceEdit.h"
#include "erase/EraseQueue.h"

using namespace Qt::StringLiterals;

Error runPreferenceEdit(CleanerContext& context, const QString& file, const std::function<Error(bool dryRun)>& edit)
{
    const QString oldCopy = JsonPreferenceEdit::oldCopyPath(file);
    context.queueLeftover(oldCopy);
    Error error = edit(context.dryRun);
    if (!error.ok())
        return error;
    context.log(u"Shred: "_s + file);
    context.eraseQueue().rewrite(file, oldCopy);
    context.queue(oldCopy);
    return {};
}
