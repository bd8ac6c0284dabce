#include "cleaners/RebuildFailure.h"

#include "cleaners/CleanerContext.h"

namespace RebuildFailure {

void report(const CleanerContext& context, const Error& error, const FailureLog::Wording& wording)
{
    const bool said = FailureLog::write(error, &wording);
    if (said && error.code != Error::Code::UnknownSchema && error.code != Error::Code::RebuiltSchemaUnknown)
        context.endCleaner();
}

} // namespace RebuildFailure
