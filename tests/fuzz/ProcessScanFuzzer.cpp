#include "FuzzHome.h"
#include "watch/ProcessScan.h"

#include <string>

namespace {

const char* const kHelpers[] = {"/usr/bin/hdid", "crashreporter.app", "plugin-container.app"};

void checkApplicationMatch(const QByteArray& line)
{
    const int match = ProcessScan::matchApplication(line);
    const auto& patterns = ProcessScan::watchedPatterns();
    FUZZ_CHECK(match >= -1 && match < int(patterns.size()));
    bool helper = false;
    for (const char* name : kHelpers)
        helper = helper || line.contains(name);
    if (helper) {
        FUZZ_CHECK(match == -1);
        return;
    }
    // The first pattern the line contains, and only that one.
    for (int i = 0; i < int(patterns.size()); ++i) {
        const char* pattern = patterns[std::size_t(i)].pattern;
        if (pattern && line.contains(pattern)) {
            FUZZ_CHECK(match == i);
            return;
        }
    }
    // Otherwise the program a Linux build runs, whatever folder it runs from.
    const qsizetype space = line.indexOf(' ');
    const std::string command = (space < 0 ? line : line.left(space)).toStdString();
    const std::size_t slash = command.rfind('/');
    const std::string program = slash == std::string::npos ? command : command.substr(slash + 1);
    for (const auto& known : ProcessScan::linuxPrograms()) {
        if (program != known.name)
            continue;
        FUZZ_CHECK(match >= 0 && patterns[std::size_t(match)].flag == known.flag);
        return;
    }
    FUZZ_CHECK(match == -1);
}

} // namespace

// The output of ps, which any process of the user shapes through its command
// line. The input's first line is a custom process's key, the rest the listing.
// The lines are the listing after its header, read through a fixed buffer:
// consecutive pieces of it, none longer than the buffer allows.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    const qsizetype newline = input.indexOf('\n');
    const QByteArray key = newline < 0 ? input : input.left(newline);
    const QByteArray listing = newline < 0 ? QByteArray() : input.mid(newline + 1);

    const QList<QByteArray> lines = ProcessScan::listingLines(listing);
    if (listing.isEmpty())
        FUZZ_CHECK(lines.isEmpty());
    const qsizetype headerEnd = listing.indexOf('\n');
    qsizetype at = std::min(headerEnd < 0 ? listing.size() : headerEnd + 1, qsizetype(2046));
    for (const QByteArray& line : lines) {
        FUZZ_CHECK(line.size() <= 2045);
        FUZZ_CHECK(listing.mid(at, line.size()) == line);
        at += line.size() + 1;

        checkApplicationMatch(line);
        if (ProcessScan::matchesCustomProcess(line, key))
            FUZZ_CHECK(!key.isEmpty() && line.contains(key) && !line.contains("/usr/bin/hdid"));
        else
            FUZZ_CHECK(key.isEmpty() || !line.contains(key) || line.contains("/usr/bin/hdid"));
    }
    FUZZ_CHECK(at == listing.size());
    return 0;
}
