#include "platform/macos/AppleScriptLoginItem.h"

#include "core/ChildProcess.h"

using namespace Qt::StringLiterals;

namespace {

QString joinLines(const QStringList& lines)
{
    return lines.join(u'\n');
}

QString trueOrFalse(bool value)
{
    return value ? u"true"_s : u"false"_s;
}

} // namespace

AppleScriptLoginItem::AppleScriptLoginItem(QString bundlePath, CommandRunner* runner)
    : m_bundlePath(std::move(bundlePath))
    , m_ownedRunner(runner ? nullptr : std::make_unique<SystemCommandRunner>())
    , m_runner(runner ? runner : m_ownedRunner.get())
{
}

AppleScriptLoginItem::~AppleScriptLoginItem() = default;

QString AppleScriptLoginItem::pathScript()
{
    return joinLines(
        {u"tell application \"System Events\""_s, u"get path of login item \"Vantle X\""_s, u"end tell"_s});
}

QString AppleScriptLoginItem::deletionScript()
{
    return joinLines({u"tell application \"System Events\""_s, u"get the name of every login item"_s,
                      u"if login item \"Vantle X\" exists then"_s, u"delete login item \"Vantle X\""_s, u"end if"_s,
                      u"end tell"_s});
}

QString AppleScriptLoginItem::creationScript(const QString& applicationPath, bool hidden)
{
    return joinLines({u"tell application \"System Events\""_s,
                      u"make new login item at end with properties {path:\"%1\", hidden:%2}"_s.arg(applicationPath,
                                                                                                   trueOrFalse(hidden)),
                      u"end tell"_s});
}

QString AppleScriptLoginItem::hiddenScript(bool hidden)
{
    return joinLines({u"tell application \"System Events\""_s, u"if login item \"Vantle X\" exists then"_s,
                      u"set hidden of login item \"Vantle X\" to %1"_s.arg(trueOrFalse(hidden)), u"end if"_s,
                      u"end tell"_s});
}

QByteArray AppleScriptLoginItem::runScript(const QString& script) const
{
    const ProcessResult result = m_runner->run(u"/usr/bin/osascript"_s, {u"-e"_s, script});
    return result.started && !result.crashed && result.exitCode == 0 ? result.standardOutput : QByteArray();
}

QString AppleScriptLoginItem::path() const
{
    return QString::fromUtf8(runScript(pathScript())).trimmed();
}

void AppleScriptLoginItem::remove()
{
    runScript(deletionScript());
}

void AppleScriptLoginItem::create(const QString& applicationPath, bool hidden)
{
    runScript(creationScript(applicationPath, hidden));
}

void AppleScriptLoginItem::setHidden(bool hidden)
{
    runScript(hiddenScript(hidden));
}
