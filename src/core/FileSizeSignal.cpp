#include "core/FileSizeSignal.h"

#include <csignal>

namespace FileSizeSignal {

void ignore()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace FileSizeSignal
