#include "gui/GuiFixture.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardItemModel>

using namespace Qt::StringLiterals;

namespace {

class SettingsWindowTest : public GuiFixture {
protected:
    QCheckBox* box(const QString& pane, const QString& key) { return settingsPane(pane).findChild<QCheckBox*>(key); }
    QComboBox* popUp(const QString& key) { return settingsPane(u"Erasing"_s).findChild<QComboBox*>(key); }
    QStringList savedApplications() { return saved(u"EnabledBrowsers"_s).toStringList(); }
};

struct CheckBoxCase {
    const char16_t* pane;
    const char16_t* key;
    bool factory;          // the setting's factory value
    bool inverted = false; // the box shows the setting's opposite
};

// Every check box of the panel, with the setting it writes.
const CheckBoxCase kCheckBoxes[] = {
    {u"Erasing", u"ShredCache", true},
    {u"Erasing", u"ShredHistory", false},
    {u"Erasing", u"ShredIEDownloadCache", false},
    {u"Erasing", u"shredSafariFavicon", false},
    {u"Erasing", u"ShredCookies", false},
    {u"Erasing", u"ShredPasswords", false},
    {u"Erasing", u"DoDSanitize", false},
    {u"Erasing", u"NSA", false},
    {u"General", u"Tarnhold", true},
    {u"General", u"HideAfterShredding", false},
    {u"General", u"ActivityLog", false},
    {u"General", u"ConfirmShredding", true},
    {u"General", u"ShredQuicktimeCache", false},
    {u"General", u"ShredMailCache", false},
    {u"General", u"ShredAppleMailJunk", false},
    {u"General", u"ShredMailTrash", true},
    // The box erases the top sites, so it is the keep setting inverted.
    {u"Erasing", u"KeepSafariTopSites", false, true},
};

} // namespace

TEST_F(SettingsWindowTest, EachCheckBoxWritesItsSettingAtOnceAndOnlyWhileItDiffersFromTheFactory)
{
    for (const CheckBoxCase& c : kCheckBoxes) {
        const QString key = QString::fromUtf16(c.key);
        QCheckBox* control = box(QString::fromUtf16(c.pane), key);
        ASSERT_NE(control, nullptr) << key.toStdString();
        EXPECT_EQ(control->isChecked(), c.factory != c.inverted) << key.toStdString();

        toggle(control);
        EXPECT_EQ(saved(key), QVariant(!c.factory)) << key.toStdString();
        EXPECT_EQ(Preferences::objectForKey(key), QVariant(!c.factory)) << key.toStdString();

        toggle(control);
        EXPECT_FALSE(saved(key).isValid()) << key.toStdString();
    }
    EXPECT_TRUE(box(u"Erasing"_s, u"KeepSafariTopSites"_s)->text().contains(u"Top Sites"_s));
}

TEST_F(SettingsWindowTest, ThePopUpsWriteTheChosenIndexAndNeverOfferTheSeparator)
{
    QComboBox* passes = popUp(u"NumberOfWrites"_s);
    QComboBox* pattern = popUp(u"OverwritePattern"_s);
    ASSERT_NE(passes, nullptr);
    ASSERT_NE(pattern, nullptr);
    EXPECT_EQ(passes->count(), 17);
    EXPECT_EQ(pattern->count(), 7);
    EXPECT_EQ(passes->itemText(2), u"1 pass"_s);
    EXPECT_EQ(passes->itemText(11), u"10 passes"_s);
    EXPECT_EQ(passes->itemText(16), u"35 passes"_s);
    EXPECT_EQ(pattern->itemText(3), u"Zeros (0x00)"_s);
    for (QComboBox* menu : {passes, pattern}) {
        const auto* model = qobject_cast<QStandardItemModel*>(menu->model());
        ASSERT_NE(model, nullptr);
        EXPECT_FALSE(model->item(1)->isEnabled());
    }

    // From the first item the next choice down skips the separator.
    passes->setFocus();
    QTest::keyClick(passes, Qt::Key_Down);
    EXPECT_EQ(passes->currentIndex(), 2);
    EXPECT_EQ(saved(u"NumberOfWrites"_s), QVariant(qint64(2)));
    QTest::keyClick(passes, Qt::Key_Up);
    EXPECT_EQ(passes->currentIndex(), 0);
    EXPECT_FALSE(saved(u"NumberOfWrites"_s).isValid());

    pattern->setFocus();
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(pattern, Qt::Key_Down);
    EXPECT_EQ(pattern->currentText(), u"Ones (0xFF)"_s);
    EXPECT_EQ(saved(u"OverwritePattern"_s), QVariant(qint64(4)));
    EXPECT_EQ(Preferences::objectForKey(u"OverwritePattern"_s), QVariant(qint64(4)));
}

TEST_F(SettingsWindowTest, AnIndexTheMenuCannotSelectShowsTheFactoryChoiceAndStaysUntilChosenOver)
{
    // The separator, and one past the last of the pattern menu's 7 items.
    storedDefaults().setInteger(1, PreferenceKey::NumberOfWrites);
    storedDefaults().setInteger(7, PreferenceKey::OverwritePattern);
    storedDefaults().synchronize();
    QComboBox* passes = popUp(u"NumberOfWrites"_s);
    QComboBox* pattern = popUp(u"OverwritePattern"_s);
    EXPECT_EQ(passes->currentIndex(), 0);
    EXPECT_EQ(pattern->currentIndex(), 0);

    // A change elsewhere on the panel leaves both stored indexes alone.
    toggle(box(u"Erasing"_s, u"ShredCookies"_s));
    ASSERT_EQ(saved(u"ShredCookies"_s), QVariant(true));
    EXPECT_EQ(saved(u"NumberOfWrites"_s), QVariant(qint64(1)));
    EXPECT_EQ(saved(u"OverwritePattern"_s), QVariant(qint64(7)));
    EXPECT_EQ(Preferences::objectForKey(u"OverwritePattern"_s), QVariant(qint64(7)));

    // A choice in one menu stores that menu's index only.
    passes->setFocus();
    QTest::keyClick(passes, Qt::Key_Down);
    EXPECT_EQ(saved(u"NumberOfWrites"_s), QVariant(qint64(2)));
    EXPECT_EQ(saved(u"OverwritePattern"_s), QVariant(qint64(7)));
    EXPECT_EQ(pattern->currentIndex(), 0);
}

TEST_F(SettingsWindowTest, CoupledApplicationsAreTickedAndUntickedTogether)
{
    QCheckBox* safari = box(u"Applications"_s, u"Safari"_s);
    QCheckBox* shiira = box(u"Applications"_s, u"Shiira"_s);
    QCheckBox* netscape = box(u"Applications"_s, u"Netscape"_s);
    QCheckBox* mozilla = box(u"Applications"_s, u"Mozilla"_s);
    QCheckBox* chrome = box(u"Applications"_s, u"Chrome"_s);
    ASSERT_TRUE(safari && shiira && netscape && mozilla && chrome);

    toggle(safari);
    EXPECT_FALSE(shiira->isChecked());
    EXPECT_FALSE(savedApplications().contains(u"Safari"_s));
    EXPECT_FALSE(savedApplications().contains(u"Shiira"_s));
    EXPECT_EQ(savedApplications().size(), 14); // and Eudora, which every test leaves out

    toggle(mozilla);
    EXPECT_FALSE(netscape->isChecked());
    toggle(netscape);
    EXPECT_TRUE(mozilla->isChecked());
    EXPECT_TRUE(savedApplications().contains(u"Mozilla"_s));

    toggle(chrome);
    EXPECT_FALSE(chrome->isChecked());
    EXPECT_TRUE(box(u"Applications"_s, u"Firefox"_s)->isChecked());
    EXPECT_FALSE(savedApplications().contains(u"Chrome"_s));
}

TEST_F(SettingsWindowTest, FactorySettingsPutsTheControlsBackAndTheNextChangeStoresThem)
{
    toggle(box(u"Erasing"_s, u"ShredHistory"_s));
    toggle(box(u"General"_s, u"ConfirmShredding"_s));
    ASSERT_TRUE(saved(u"ShredHistory"_s).isValid());

    auto* factory = app().settingsWindow().findChild<QPushButton*>(u"revertToDefault"_s);
    ASSERT_NE(factory, nullptr);
    QTest::mouseClick(factory, Qt::LeftButton);
    EXPECT_FALSE(box(u"Erasing"_s, u"ShredHistory"_s)->isChecked());
    EXPECT_TRUE(box(u"General"_s, u"ConfirmShredding"_s)->isChecked());
    EXPECT_TRUE(Preferences::sharedInstance().prefsConfirmShredding());
    // Nothing is written until the next change; that change stores only itself.
    EXPECT_TRUE(saved(u"ShredHistory"_s).isValid());

    toggle(box(u"Erasing"_s, u"ShredCookies"_s));
    EXPECT_FALSE(saved(u"ShredHistory"_s).isValid());
    EXPECT_FALSE(saved(u"ConfirmShredding"_s).isValid());
    EXPECT_EQ(saved(u"ShredCookies"_s), QVariant(true));
}

TEST_F(SettingsWindowTest, ScreenReadersCanTellEveryListAndLookAlikeButtonApart)
{
    // A pop-up menu's list is named by the pop-up, a table's header by the table.
    const auto namedElsewhere = [](const QWidget* widget) {
        if (qobject_cast<const QHeaderView*>(widget))
            return true;
        for (; widget; widget = widget->parentWidget()) {
            if (qobject_cast<const QComboBox*>(widget))
                return true;
        }
        return false;
    };
    QList<QWidget*> roots{&window(), &settingsPane(u"Erasing"_s)};
    QStringList names;
    for (QWidget* root : roots) {
        for (QWidget* widget : root->findChildren<QWidget*>()) {
            if ((qobject_cast<QAbstractItemView*>(widget) && !namedElsewhere(widget)) ||
                qobject_cast<QProgressBar*>(widget)) {
                EXPECT_FALSE(widget->accessibleName().isEmpty()) << qPrintable(widget->objectName());
                names.append(widget->accessibleName());
            } else if (auto* button = qobject_cast<QPushButton*>(widget); button && button->menu()) {
                // The profiles' pop-ups all read "Profiles".
                names.append(button->accessibleName());
            }
        }
    }
    const qsizetype count = names.size();
    names.removeDuplicates();
    EXPECT_EQ(names.size(), count) << qPrintable(names.join(u", "_s));
    EXPECT_TRUE(names.contains(u"Firefox profiles"_s)) << qPrintable(names.join(u", "_s));
}
