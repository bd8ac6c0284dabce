#include "cli/CliFixture.h"

using namespace Qt::StringLiterals;

namespace {

class KeepCliTest : public CliFixture {
protected:
    // The error and the pointer to --help on the standard error, exit status 2 and the settings file untouched.
    void expectRefused(const QStringList& arguments)
    {
        const QByteArray before = home.read(u".config/com.orvick.vantle.plist"_s);
        const CliRun run = cli(arguments);
        EXPECT_EQ(run.exitCode, 2) << qPrintable(arguments.join(u' '));
        EXPECT_EQ(run.err.count(u'\n'), 2) << qPrintable(run.err);
        EXPECT_EQ(home.read(u".config/com.orvick.vantle.plist"_s), before);
    }
};

} // namespace

TEST_F(KeepCliTest, DomainsAreAddedListedAndRemoved)
{
    CliRun list = cli({u"keep"_s, u"list"_s});
    ASSERT_EQ(list.exitCode, 0) << qPrintable(list.err);
    EXPECT_EQ(list.out, u"HTML5 storage erasing: off\n"_s);

    EXPECT_EQ(cli({u"keep"_s, u"add"_s, u"apple.com"_s}).exitCode, 0);
    EXPECT_EQ(cli({u"keep"_s, u"add"_s, u"example.org"_s}).exitCode, 0);
    EXPECT_EQ(stored().value(u"mDomainTableData"_s), (QVariantList{u"apple.com"_s, u"example.org"_s}));

    expectRefused({u"keep"_s, u"add"_s, u"apple.com"_s});
    expectRefused({u"keep"_s, u"add"_s, QString()});
    expectRefused({u"keep"_s, u"add"_s, u"  "_s});
    expectRefused({u"keep"_s, u"remove"_s, u"apple"_s}); // only the entry itself, not a part of it

    list = cli({u"keep"_s, u"list"_s});
    EXPECT_EQ(list.out, u"HTML5 storage erasing: off\n    apple.com\n    example.org\n"_s);

    EXPECT_EQ(cli({u"keep"_s, u"remove"_s, u"apple.com"_s}).exitCode, 0);
    EXPECT_EQ(stored().value(u"mDomainTableData"_s), QVariantList{u"example.org"_s});
}

TEST_F(KeepCliTest, OnAndOffSetTheSwitch)
{
    EXPECT_EQ(cli({u"keep"_s, u"on"_s}).exitCode, 0);
    EXPECT_EQ(cli({u"keep"_s, u"on"_s}).exitCode, 0); // already on: stays on
    EXPECT_EQ(stored().value(u"mHTML5EnabledState"_s), QVariant(qint64(1)));
    EXPECT_EQ(cli({u"keep"_s, u"list"_s}).out, u"HTML5 storage erasing: on\n"_s);

    EXPECT_EQ(cli({u"keep"_s, u"off"_s}).exitCode, 0);
    EXPECT_EQ(cli({u"keep"_s, u"off"_s}).exitCode, 0);
    EXPECT_EQ(stored().value(u"mHTML5EnabledState"_s), QVariant(qint64(0)));
    EXPECT_EQ(cli({u"keep"_s}).exitCode, 2);
}
