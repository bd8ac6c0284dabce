#include "gui/GuiFixture.h"
#include "watch/CustomShred.h"

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
    QStringList savedFlashPaths() { return savedPlugin(u"Flash Player"_s).value(u"paths"_s).toStringList(); }
    QVariantMap savedProcesses() { return CustomShred::unarchive(saved(u"mProcessDictionary"_s).toByteArray()); }

    static QStringList rows(const QListWidget* list)
    {
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts.append(list->item(i)->text());
        return texts;
    }
    static void select(QListWidget* list, const QString& text) { list->setCurrentRow(int(rows(list).indexOf(text))); }
};

} // namespace

TEST_F(ListPanesTest, ProfileMenusCheckTheSelectedProfilesAndAClickTogglesOne)
{
    const QString firefox = u"Library/Application Support/Firefox/Profiles/"_s;
    home.write(firefox + u"ab12cd34.default/prefs.js"_s, "x");
    home.write(firefox + u"ef56gh78.work/prefs.js"_s, "x");

    QMenu* menu = child<QPushButton>(u"Profiles"_s, u"mFirefoxPopup"_s)->menu();
    const auto checked = [&](bool work) {
        return QTest::qWaitFor([&] { return menu->actions().size() == 3 && menu->actions()[2]->isChecked() == work; },
                               3000);
    };
    ASSERT_TRUE(checked(true));
    // The pull-down's title item, then one item per profile.
    EXPECT_EQ(menu->actions()[0]->text(), u"Profiles"_s);
    EXPECT_FALSE(menu->actions()[0]->isCheckable() || menu->actions()[0]->isEnabled());
    EXPECT_EQ(menu->actions()[1]->text() + menu->actions()[2]->text(), u"defaultwork"_s);
    EXPECT_TRUE(menu->actions()[1]->isChecked());

    menu->actions()[2]->trigger();
    ASSERT_TRUE(checked(false));
    EXPECT_TRUE(menu->actions()[1]->isChecked());
    EXPECT_EQ(saved(u"ProfilesMenuDict"_s).toMap().value(home.file(firefox.chopped(1))).toStringList(),
              QStringList{u"ab12cd34.default"_s});

    // An application without a profiles folder gets the title item alone.
    QMenu* thunderbird = child<QPushButton>(u"Profiles"_s, u"mThunderbirdPopup"_s)->menu();
    ASSERT_EQ(thunderbird->actions().size(), 1);
    EXPECT_EQ(thunderbird->actions()[0]->text(), u"Profiles"_s);
}

TEST_F(ListPanesTest, DefaultPluginsCanOnlyBeUntickedAndTheirPathsComeFromTheOpenDialogAUserPluginIsNamedInPlace)
{
    home.write(u"Library/Caches/Extra/data"_s, "x");
    auto* table = child<QTableView>(u"Plug-ins"_s, u"mPluginList"_s);
    auto* paths = child<QListWidget>(u"Plug-ins"_s, u"mPluginPath"_s);
    ASSERT_TRUE(table && paths);
    EXPECT_FALSE(button(u"Plug-ins"_s, u"mAddPath"_s)->isEnabled());
    EXPECT_FALSE(button(u"Plug-ins"_s, u"mRestoreDefault"_s)->isEnabled());

    table->selectRow(0);
    EXPECT_EQ(table->model()->index(0, 1).data().toString(), u"Flash Player"_s);
    EXPECT_FALSE(button(u"Plug-ins"_s, u"mDeletePlugin"_s)->isEnabled());
    EXPECT_TRUE(button(u"Plug-ins"_s, u"mRestoreDefault"_s)->isEnabled());
    EXPECT_EQ(rows(paths), savedFlashPaths());
    EXPECT_EQ(paths->item(2)->toolTip(), home.file(savedFlashPaths()[2].mid(2)));

    click(u"Plug-ins"_s, u"mAddPath"_s);
    OpenPanel* panel = openPanel();
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->windowTitle(), u"Select item to shred"_s);
    EXPECT_EQ(panel->labelText(QFileDialog::Accept), u"Select"_s);
    EXPECT_EQ(QDir(panel->directory()).absolutePath(), home.file(u"Library/Caches"_s));
    EXPECT_TRUE(panel->testOption(QFileDialog::DontUseNativeDialog) && panel->filter().testFlag(QDir::Hidden));
    const QList<QLabel*> labels = panel->findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.cbegin(), labels.cend(),
                            [](const QLabel* l) { return l->text() == u"Please select an item to shred."_s; }));
    // A folder is chosen, not opened; the same folder again is stored again; a cancelled dialog changes nothing.
    choose(home.file(u"Library/Caches/Extra"_s));
    ASSERT_EQ(savedFlashPaths().size(), 4);
    EXPECT_EQ(savedFlashPaths()[3], u"~/Library/Caches/Extra"_s);
    click(u"Plug-ins"_s, u"mAddPath"_s);
    choose(home.file(u"Library/Caches/Extra"_s));
    click(u"Plug-ins"_s, u"mAddPath"_s);
    openPanel()->reject();
    EXPECT_EQ(savedFlashPaths().size(), 5);

    EXPECT_FALSE(button(u"Plug-ins"_s, u"mDeletePath"_s)->isEnabled());
    paths->setCurrentRow(0);
    click(u"Plug-ins"_s, u"mDeletePath"_s);
    EXPECT_EQ(savedFlashPaths().size(), 4);
    EXPECT_FALSE(savedFlashPaths().contains(u"~/Library/Preferences/Macromedia/Flash Player/#SharedObjects"_s));
    click(u"Plug-ins"_s, u"mRestoreDefault"_s);
    EXPECT_EQ(savedFlashPaths().size(), 3);
    EXPECT_FALSE(savedFlashPaths().contains(u"~/Library/Caches/Extra"_s));
    EXPECT_EQ(rows(paths), savedFlashPaths());

    // Space on the check box unticks it.
    table->setFocus();
    table->setCurrentIndex(table->model()->index(0, 0));
    QTest::keyClick(table->viewport(), Qt::Key_Space);
    EXPECT_EQ(savedPlugin(u"Flash Player"_s).value(u"enabled"_s), QVariant(false));
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

    // A user's plug-in is named in place and removed for good.
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

TEST_F(ListPanesTest, CustomProcessesAndTheirPathsComeFromTheOpenDialogsAndButtonsWithoutTheirSelectionBeep)
{
    const QString editor = home.file(u"Applications/Editor.app/Contents/MacOS/Editor"_s);
    home.write(u"Applications/Editor.app/Contents/MacOS/Editor"_s, "binary");
    home.write(u"Library/Caches/Editor/draft"_s, "x");
    home.write(u"Documents/notes.txt"_s, "x");
    auto* processes = child<QListWidget>(u"Custom Processes"_s, u"mProcessTableView"_s);
    auto* paths = child<QListWidget>(u"Custom Processes"_s, u"mPathTableView"_s);
    auto* keep = child<QCheckBox>(u"Custom Processes"_s, u"mKeepThisPathCheckbox"_s);
    ASSERT_TRUE(processes && paths && keep);
    EXPECT_EQ(button(u"Custom Processes"_s, u"mDisableProcessButton"_s)->text(), u"Disable"_s);
    EXPECT_EQ(button(u"Custom Processes"_s, u"mDisablePathButton"_s)->text(), u"Disable"_s);
    const auto clicksBeep = [&](const QStringList& names, int wanted) {
        const int before = beeps;
        const QVariantMap stored = savedProcesses();
        for (const QString& name : names + QStringList{u"mAddPathButton"_s, u"mDeleteProcessButton"_s})
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
    EXPECT_EQ(beeps, 5);
    EXPECT_EQ(processes->count(), 1);

    select(processes, u"Editor"_s);
    click(u"Custom Processes"_s, u"mAddPathButton"_s);
    EXPECT_EQ(openPanel()->windowTitle(), u"Select item to shred"_s);
    choose(home.file(u"Library/Caches/Editor"_s));
    click(u"Custom Processes"_s, u"mAddPathButton"_s);
    choose(home.file(u"Documents/notes.txt"_s));
    EXPECT_EQ(rows(paths), (QStringList{u"~/Library/Caches/Editor"_s, u"~/Documents/notes.txt"_s}));
    // A process but no path row.
    paths->setCurrentRow(-1);
    clicksBeep({u"mDeletePathButton"_s}, 1);

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
    clicksBeep({u"mDisableProcessButton"_s, u"mDisablePathButton"_s}, 2);
    EXPECT_EQ(rows(processes), QStringList{u"Editor"_s});

    select(paths, u"~/Documents/notes.txt"_s);
    click(u"Custom Processes"_s, u"mDeletePathButton"_s);
    EXPECT_EQ(rows(paths), QStringList{u"~/Library/Caches/Editor"_s});
    click(u"Custom Processes"_s, u"mDeleteProcessButton"_s);
    EXPECT_EQ(processes->count(), 0);
    EXPECT_TRUE(savedProcesses().isEmpty());
    EXPECT_EQ(window().findChild<QLabel*>(u"mTHCustomConfigured"_s)->text(), u"0"_s);
}
