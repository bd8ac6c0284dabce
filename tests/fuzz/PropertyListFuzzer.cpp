#include "FuzzHome.h"
#include "core/PropertyList.h"

// A settings file (XML or binary property list) as any program may have written
// it. What it reads as is written back as XML, and that reads back as itself:
// the settings the program writes survive the next start.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto value = PropertyList::parse(bytes);
    if (!value)
        return 0;
    const QByteArray xml = PropertyList::toXml(*value);
    if (xml.isEmpty())
        return 0;
    const auto again = PropertyList::parse(xml);
    FUZZ_CHECK(again.has_value());
    FUZZ_CHECK(PropertyList::toXml(*again) == xml);
    return 0;
}
