#include "gui/GuiFixture.h"

#include <QAbstractItemView>
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
};

struct CheckBoxCase {
    const char16_t* pane;
    QStringList keys;
    bool factory;          // the settings' factory value
    bool inverted = false; // the box shows the setting's opposite
};

// Every check box of the panel, with the setting it writes.
const CheckBoxCase kCheckBoxes[] = {
    {u"Erasing", {u"ShredCache"_s}, true},
    {u"Erasing",
     {u"ShredHistory"_s, u"ShredIEDownloadCache"_s, u"shredSafariFavicon"_s, u"ShredCookies"_s, u"ShredPasswords"_s,
      u"DoDSanitize"_s, u"NSA"_s},
     false},
    {u"General", {u"Tarnhold"_s, u"ConfirmShredding"_s, u"ShredMailTrash"_s}, true},
    {u"General",
     {u"HideAfterShredding"_s, u"ActivityLog"_s, u"ShredQuicktimeCache"_s, u"ShredMailCache"_s,
      u"ShredAppleMailJunk"_s},
     false},
    // The box erases the top sites, so it is the keep setting inverted.
    {u"Erasing", {u"KeepSafariTopSites"_s}, false, true},
};

} // namespace

TEST_F(SettingsWindowTest, EachCheckBoxWritesItsSettingAtOnceAndOnlyWhileItDiffersFromTheFactory)
{
    for (const CheckBoxCase& c : kCheckBoxes) {
        for (const QString& key : c.keys) {
            QCheckBox* control = box(QString::fromUtf16(c.pane), key);
            ASSERT_NE(control, nullptr) << key.toStdString();
            EXPECT_EQ(control->isChecked(), c.factory != c.inverted) << key.toStdString();

            toggle(control);
            EXPECT_EQ(saved(key), QVariant(!c.factory)) << key.toStdString();
            EXPECT_EQ(Preferences::objectForKey(key), QVariant(!c.factory)) << key.toStdString();

            toggle(control);
            EXPECT_FALSE(saved(key).isValid()) << key.toStdString();
        }
    }
    EXPECT_TRUE(box(u"Erasing"_s, u"KeepSafariTopSites"_s)->text().contains(u"Top Sites"_s));
}

TEST_F(SettingsWindowTest, ThePopUpsNeverOfferTheSeparatorAndStoreOnlyTheirOwnChosenIndexUntilFactorySettings)
{
    // The separator, and one past the last of the pattern menu's 7 items, show the factory choice.
    storedDefaults().setInteger(1, PreferenceKey::NumberOfWrites);
    storedDefaults().setInteger(7, PreferenceKey::OverwritePattern);
    storedDefaults().synchronize();
    QComboBox* passes = popUp(u"NumberOfWrites"_s);
    QComboBox* pattern = popUp(u"OverwritePattern"_s);
    ASSERT_TRUE(passes && pattern);
    EXPECT_EQ(passes->currentIndex(), 0);
    EXPECT_EQ(pattern->currentIndex(), 0);
    EXPECT_EQ(passes->count(), 17);
    EXPECT_EQ(pattern->count(), 7);
    EXPECT_EQ(passes->itemText(2) + passes->itemText(11) + passes->itemText(16), u"1 pass10 passes35 passes"_s);
    EXPECT_EQ(pattern->itemText(3), u"Zeros (0x00)"_s);
    for (QComboBox* menu : {passes, pattern})
        EXPECT_FALSE(qobject_cast<QStandardItemModel*>(menu->model())->item(1)->isEnabled());

    // From the first item the next choice down skips the separator; a choice stores that menu's index only.
    passes->setFocus();
    QTest::keyClick(passes, Qt::Key_Down);
    EXPECT_EQ(passes->currentIndex(), 2);
    EXPECT_EQ(saved(u"NumberOfWrites"_s), QVariant(qint64(2)));
    EXPECT_EQ(saved(u"OverwritePattern"_s), QVariant(qint64(7)));
    QTest::keyClick(passes, Qt::Key_Up);
    EXPECT_EQ(passes->currentIndex(), 0);
    EXPECT_FALSE(saved(u"NumberOfWrites"_s).isValid());

    pattern->setFocus();
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(pattern, Qt::Key_Down);
    EXPECT_EQ(pattern->currentText(), u"Ones (0xFF)"_s);
    EXPECT_EQ(saved(u"OverwritePattern"_s), QVariant(qint64(4)));
    EXPECT_EQ(Preferences::objectForKey(u"OverwritePattern"_s), QVariant(qint64(4)));

    // Factory settings put the controls back; the next change stores them.
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
