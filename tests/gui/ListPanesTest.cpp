#include "gui/GuiFixture.h"
#include "settings/ProfilesManager.h"
#include "watch/CustomShred.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

class ListPanesTest : public GuiFixture {
protected:
    template<typename T> T* child(const QString& pane, const QString& name)
    {
        return settingsPane(pane).findChild<T*>(name);
    }
    QPushButton* button(const QString& pane, const QString& name) { return child<QPushButton>(pane, name); }
    void click(const QString& pane, const QString& name) { QTest::mouseClick(button(pane, name), Qt::LeftButton); }

    QVariantMap savedPlugin(const QString& name)
    {
        for (const QVariant& plugin : saved(u"mPluginArray"_s).toList()) {
            if (plugin.toMap().value(u"name"_s) == name)
                return plugin.toMap();
        }
        return {};
    }
    QVariantMap savedProcesses() { return CustomShred::unarchive(saved(u"mProcessDictionary"_s).toByteArray()); }

    static QStringList rows(const QListWidget* list)
    {
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts.append(list->item(i)->text());
        return texts;
    }
    static void select(QListWidget* list, const QString& text)
    {
        for (int i = 0; i < list->count(); ++i) {
            if (list->item(i)->text() == text)
                list->setCurrentRow(i);
        }
    }
};

} // namespace

TEST_F(ListPanesTest, ProfileMenusCheckTheSelectedProfilesAndAClickTogglesOne)
{
    const QString firefox = u"Library/Application Support/Firefox/Profiles/"_s;
    home.write(firefox + u"ab12cd34.default/prefs.js"_s, "x");
    home.write(firefox + u"ef56gh78.work/prefs.js"_s, "x");
    home.write(firefox + u"profiles.ini"_s, "not a profile");

    auto* popUp = child<QPushButton>(u"Profiles"_s, u"mFirefoxPopup"_s);
    ASSERT_NE(popUp, nullptr);
    QMenu* menu = popUp->menu();
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->actions().size() == 3; }, 3000));
    // The pull-down's title item, then one item per profile.
    EXPECT_EQ(menu->actions()[0]->text(), u"Profiles"_s);
    EXPECT_FALSE(menu->actions()[0]->isCheckable());
    EXPECT_FALSE(menu->actions()[0]->isEnabled());
    EXPECT_EQ(menu->actions()[1]->text(), u"default"_s);
    EXPECT_EQ(menu->actions()[2]->text(), u"work"_s);
    EXPECT_TRUE(menu->actions()[1]->isChecked() && menu->actions()[2]->isChecked());

    menu->actions()[2]->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->actions().size() == 3 && !menu->actions()[2]->isChecked(); }, 3000));
    EXPECT_TRUE(menu->actions()[1]->isChecked());
    const QString folder = home.file(firefox.chopped(1));
    EXPECT_EQ(saved(u"ProfilesMenuDict"_s).toMap().value(folder).toStringList(), QStringList{u"ab12cd34.default"_s});

    menu->actions()[2]->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->actions().size() == 3 && menu->actions()[2]->isChecked(); }, 3000));
    EXPECT_EQ(saved(u"ProfilesMenuDict"_s).toMap().value(folder).toStringList(),
              (QStringList{u"ab12cd34.default"_s, u"ef56gh78.work"_s}));

    // An application without a profiles folder gets the title item alone and an empty selection.
    QMenu* thunderbird = child<QPushButton>(u"Profiles"_s, u"mThunderbirdPopup"_s)->menu();
    ASSERT_EQ(thunderbird->actions().size(), 1);
    EXPECT_EQ(thunderbird->actions()[0]->text(), u"Profiles"_s);
    EXPECT_FALSE(thunderbird->actions()[0]->isCheckable());
    const QVariantMap selection = saved(u"ProfilesMenuDict"_s).toMap();
    const QString thunderbirdFolder = home.file(u"Library/Thunderbird/Profiles"_s);
    ASSERT_TRUE(selection.contains(thunderbirdFolder));
    EXPECT_TRUE(selection.value(thunderbirdFolder).toStringList().isEmpty());
}

TEST_F(ListPanesTest, PluginButtonsFollowTheSelectionAndDefaultPluginsCanOnlyBeUnticked)
{
    auto* table = child<QTableView>(u"Plug-ins"_s, u"mPluginList"_s);
    ASSERT_NE(table, nullptr);
    ASSERT_GT(table->model()->rowCount(), 0);
    EXPECT_FALSE(button(u"Plug-ins"_s, u"mAddPath"_s)->isEnabled());
    EXPECT_FALSE(button(u"Plug-ins"_s, u"mRestoreDefault"_s)->isEnabled());

    table->selectRow(0);
    const QString flash = table->model()->index(0, 1).data().toString();
    EXPECT_EQ(flash, u"Flash Player"_s);
    EXPECT_FALSE(button(u"Plug-ins"_s, u"mDeletePlugin"_s)->isEnabled());
    EXPECT_TRUE(button(u"Plug-ins"_s, u"mRestoreDefault"_s)->isEnabled());
    EXPECT_TRUE(button(u"Plug-ins"_s, u"mAddPath"_s)->isEnabled());
    auto* paths = child<QListWidget>(u"Plug-ins"_s, u"mPluginPath"_s);
    EXPECT_EQ(rows(paths).value(2), u"~/Library/Caches/Adobe/Flash Player"_s);
    EXPECT_EQ(paths->item(2)->toolTip(), home.file(u"Library/Caches/Adobe/Flash Player"_s));

    // Space on the check box unticks it.
    table->setFocus();
    table->setCurrentIndex(table->model()->index(0, 0));
    QTest::keyClick(table->viewport(), Qt::Key_Space);
    EXPECT_EQ(savedPlugin(flash).value(u"enabled"_s), QVariant(false));
    EXPECT_EQ(table->model()->rowCount(), saved(u"mPluginArray"_s).toList().size());
    // Its name cannot be edited: trying beeps, as does trying to edit a path. No cell has a tool tip.
    const QModelIndex name = table->model()->index(0, 1);
    EXPECT_FALSE(table->model()->flags(name).testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(name.data(Qt::ToolTipRole).isValid());
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(name).center());
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(name).center());
    EXPECT_EQ(table->findChild<QLineEdit*>(), nullptr);
    EXPECT_EQ(beeps, 1);
    QTest::mouseClick(paths->viewport(), Qt::LeftButton, {}, paths->visualItemRect(paths->item(0)).center());
    QTest::mouseDClick(paths->viewport(), Qt::LeftButton, {}, paths->visualItemRect(paths->item(0)).center());
    EXPECT_EQ(beeps, 2);
}

TEST_F(ListPanesTest, PathsComeFromTheOpenDialogAndRestoreDefaultDropsThem)
{
    home.write(u"Library/Caches/Extra/data"_s, "x");
    auto* table = child<QTableView>(u"Plug-ins"_s, u"mPluginList"_s);
    table->selectRow(0);

    click(u"Plug-ins"_s, u"mAddPath"_s);
    OpenPanel* panel = openPanel();
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->windowTitle(), u"Select item to shred"_s);
    EXPECT_EQ(panel->labelText(QFileDialog::Accept), u"Select"_s);
    EXPECT_EQ(QDir(panel->directory()).absolutePath(), home.file(u"Library/Caches"_s));
    EXPECT_TRUE(panel->testOption(QFileDialog::DontUseNativeDialog));
    EXPECT_TRUE(panel->filter().testFlag(QDir::Hidden));
    const QList<QLabel*> labels = panel->findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.cbegin(), labels.cend(),
                            [](const QLabel* l) { return l->text() == u"Please select an item to shred."_s; }));
    // A folder is chosen, not opened.
    choose(home.file(u"Library/Caches/Extra"_s));
    QStringList stored = savedPlugin(u"Flash Player"_s).value(u"paths"_s).toStringList();
    ASSERT_EQ(stored.size(), 4);
    EXPECT_EQ(stored[3], u"~/Library/Caches/Extra"_s);

    // The same folder again is stored again.
    click(u"Plug-ins"_s, u"mAddPath"_s);
    choose(home.file(u"Library/Caches/Extra"_s));
    EXPECT_EQ(savedPlugin(u"Flash Player"_s).value(u"paths"_s).toStringList().size(), 5);

    // A cancelled dialog changes nothing.
    click(u"Plug-ins"_s, u"mAddPath"_s);
    openPanel()->reject();
    EXPECT_EQ(savedPlugin(u"Flash Player"_s).value(u"paths"_s).toStringList().size(), 5);

    auto* paths = child<QListWidget>(u"Plug-ins"_s, u"mPluginPath"_s);
    EXPECT_FALSE(button(u"Plug-ins"_s, u"mDeletePath"_s)->isEnabled());
    paths->setCurrentRow(0);
    click(u"Plug-ins"_s, u"mDeletePath"_s);
    stored = savedPlugin(u"Flash Player"_s).value(u"paths"_s).toStringList();
    EXPECT_EQ(stored.size(), 4);
    EXPECT_FALSE(stored.contains(u"~/Library/Preferences/Macromedia/Flash Player/#SharedObjects"_s));

    click(u"Plug-ins"_s, u"mRestoreDefault"_s);
    stored = savedPlugin(u"Flash Player"_s).value(u"paths"_s).toStringList();
    EXPECT_EQ(stored.size(), 3);
    EXPECT_FALSE(stored.contains(u"~/Library/Caches/Extra"_s));
    EXPECT_EQ(rows(paths), stored);
}

TEST_F(ListPanesTest, AUserPluginIsNamedInPlaceAndRemovedForGood)
{
    auto* table = child<QTableView>(u"Plug-ins"_s, u"mPluginList"_s);
    const int before = table->model()->rowCount();
    click(u"Plug-ins"_s, u"mAddPlugin"_s);
    ASSERT_EQ(table->model()->rowCount(), before + 1);
    EXPECT_EQ(savedPlugin(u"New Plugin"_s).value(u"enabled"_s), QVariant(true));

    // The new row's name is open for typing.
    auto* editor = table->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, u"Game Cache"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !savedPlugin(u"Game Cache"_s).isEmpty(); }, 3000));
    EXPECT_EQ(savedPlugin(u"Game Cache"_s).value(u"enabled"_s), QVariant(true));
    EXPECT_TRUE(savedPlugin(u"New Plugin"_s).isEmpty());

    table->selectRow(before);
    EXPECT_TRUE(button(u"Plug-ins"_s, u"mDeletePlugin"_s)->isEnabled());
    EXPECT_FALSE(button(u"Plug-ins"_s, u"mRestoreDefault"_s)->isEnabled());
    click(u"Plug-ins"_s, u"mDeletePlugin"_s);
    EXPECT_EQ(table->model()->rowCount(), before);
    EXPECT_TRUE(savedPlugin(u"Game Cache"_s).isEmpty());
}

TEST_F(ListPanesTest, CustomProcessesAndTheirPathsComeFromTheOpenDialogs)
{
    const QString editor = home.file(u"Applications/Editor.app/Contents/MacOS/Editor"_s);
    home.write(u"Applications/Editor.app/Contents/MacOS/Editor"_s, "binary");
    home.write(u"Library/Caches/Editor/draft"_s, "x");
    home.write(u"Documents/notes.txt"_s, "x");
    auto* processes = child<QListWidget>(u"Custom Processes"_s, u"mProcessTableView"_s);
    auto* paths = child<QListWidget>(u"Custom Processes"_s, u"mPathTableView"_s);
    auto* keep = child<QCheckBox>(u"Custom Processes"_s, u"mKeepThisPathCheckbox"_s);
    ASSERT_TRUE(processes && paths && keep);

    click(u"Custom Processes"_s, u"mAddProcessButton"_s);
    OpenPanel* panel = openPanel();
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->windowTitle(), u"Select application to monitor"_s);
    EXPECT_EQ(panel->fileMode(), QFileDialog::ExistingFile);
    EXPECT_EQ(QDir(panel->directory()).absolutePath(), home.path());
    choose(editor);
    EXPECT_EQ(rows(processes), QStringList{u"Editor"_s});
    EXPECT_EQ(processes->item(0)->toolTip(), editor);
    EXPECT_EQ(savedProcesses().keys(), QStringList{editor});
    EXPECT_EQ(window().findChild<QLabel*>(u"mTHCustomConfigured"_s)->text(), u"1"_s);

    // The same application twice is refused with a beep.
    click(u"Custom Processes"_s, u"mAddProcessButton"_s);
    choose(editor);
    EXPECT_EQ(beeps, 1);
    EXPECT_EQ(processes->count(), 1);

    select(processes, u"Editor"_s);
    click(u"Custom Processes"_s, u"mAddPathButton"_s);
    EXPECT_EQ(openPanel()->windowTitle(), u"Select item to shred"_s);
    choose(home.file(u"Library/Caches/Editor"_s));
    click(u"Custom Processes"_s, u"mAddPathButton"_s);
    choose(home.file(u"Documents/notes.txt"_s));
    EXPECT_EQ(rows(paths), (QStringList{u"~/Library/Caches/Editor"_s, u"~/Documents/notes.txt"_s}));

    // Only a folder can be kept.
    select(paths, u"~/Documents/notes.txt"_s);
    EXPECT_FALSE(keep->isEnabled());
    select(paths, u"~/Library/Caches/Editor"_s);
    ASSERT_TRUE(keep->isEnabled());
    EXPECT_FALSE(keep->isChecked());
    toggle(keep);
    const QVariantList entries = savedProcesses().value(editor).toList();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].toMap(), (QVariantMap{{u"path"_s, home.file(u"Library/Caches/Editor"_s)}, {u"keep"_s, true}}));
    EXPECT_EQ(entries[1].toMap(), (QVariantMap{{u"path"_s, home.file(u"Documents/notes.txt"_s)}}));

    select(paths, u"~/Documents/notes.txt"_s);
    click(u"Custom Processes"_s, u"mDeletePathButton"_s);
    EXPECT_EQ(rows(paths), QStringList{u"~/Library/Caches/Editor"_s});

    click(u"Custom Processes"_s, u"mDeleteProcessButton"_s);
    EXPECT_EQ(processes->count(), 0);
    EXPECT_TRUE(savedProcesses().isEmpty());
    EXPECT_EQ(window().findChild<QLabel*>(u"mTHCustomConfigured"_s)->text(), u"0"_s);
}

TEST_F(ListPanesTest, CustomButtonsWithoutTheSelectionTheyNeedAndTheDisableButtonsBeepAndChangeNothing)
{
    const QString editor = home.file(u"Applications/Editor.app"_s);
    const QString drafts = home.file(u"Library/Caches/Editor"_s);
    const QString notes = home.file(u"Documents/notes.txt"_s);
    const QVariantMap stored{
        {editor, QVariantList{QVariantMap{{u"path"_s, drafts}, {u"keep"_s, true}}, QVariantMap{{u"path"_s, notes}}}}};
    storedDefaults().setObject(CustomShred::archive(stored), u"mProcessDictionary"_s);
    storedDefaults().synchronize();
    auto* processes = child<QListWidget>(u"Custom Processes"_s, u"mProcessTableView"_s);
    auto* paths = child<QListWidget>(u"Custom Processes"_s, u"mPathTableView"_s);
    ASSERT_TRUE(processes && paths);
    EXPECT_EQ(button(u"Custom Processes"_s, u"mDisableProcessButton"_s)->text(), u"Disable"_s);
    EXPECT_EQ(button(u"Custom Processes"_s, u"mDisablePathButton"_s)->text(), u"Disable"_s);
    const QStringList buttons{u"mAddPathButton"_s, u"mDeletePathButton"_s, u"mDeleteProcessButton"_s};
    const auto clicksBeep = [&](const QStringList& names, int wanted) {
        const int before = beeps;
        for (const QString& name : buttons + names)
            EXPECT_TRUE(button(u"Custom Processes"_s, name)->isEnabled()) << name.toStdString();
        for (const QString& name : names)
            click(u"Custom Processes"_s, name);
        EXPECT_EQ(beeps - before, wanted) << names.join(u", "_s).toStdString();
        EXPECT_EQ(savedProcesses(), stored);
    };

    // No process: adding a path beeps before any dialog, removing one beeps, removing
    // no process does nothing at all; disabling always beeps.
    clicksBeep({u"mAddPathButton"_s, u"mDeletePathButton"_s, u"mDisableProcessButton"_s, u"mDisablePathButton"_s}, 4);
    EXPECT_EQ(app().settingsWindow().findChild<OpenPanel*>(), nullptr);
    clicksBeep({u"mDeleteProcessButton"_s}, 0);

    // A process but no path row.
    select(processes, u"Editor.app"_s);
    clicksBeep({u"mDeletePathButton"_s}, 1);
    EXPECT_EQ(rows(paths), (QStringList{u"~/Library/Caches/Editor"_s, u"~/Documents/notes.txt"_s}));
    // The process and its folder selected.
    select(paths, u"~/Library/Caches/Editor"_s);
    clicksBeep({u"mDisableProcessButton"_s, u"mDisablePathButton"_s}, 2);
    EXPECT_EQ(rows(processes), QStringList{u"Editor.app"_s});

    select(paths, u"~/Documents/notes.txt"_s);
    click(u"Custom Processes"_s, u"mDeletePathButton"_s);
    EXPECT_EQ(beeps, 7);
    EXPECT_EQ(savedProcesses().value(editor).toList().size(), 1);
}
