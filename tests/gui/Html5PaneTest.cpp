#include "gui/GuiFixture.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class Html5PaneTest : public GuiFixture {
protected:
    QWidget& pane() { return settingsPane(u"HTML5"_s); }
    QListWidget* table() { return pane().findChild<QListWidget*>(u"mDomainTableView"_s); }
    QPushButton* button(const QString& name) { return pane().findChild<QPushButton*>(name); }
    QStringList savedDomains() { return saved(u"mDomainTableData"_s).toStringList(); }
    bool domainsSaved(const QStringList& wanted)
    {
        return QTest::qWaitFor([&] { return savedDomains() == wanted; }, 3000);
    }

    // Types text into the open editor of the table and presses Return.
    void typeIntoEditor(const QString& text)
    {
        QLineEdit* editor = nullptr;
        ASSERT_TRUE(QTest::qWaitFor(
            [&] {
                editor = table()->findChild<QLineEdit*>();
                return editor && editor->isVisible();
            },
            3000));
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
    }
};

} // namespace

TEST_F(Html5PaneTest, TheSwitchTurnsErasingOnAndRowsAreAddedEditedInPlaceAndRemovedWithTheSelection)
{
    storedDefaults().setObject(QVariantList{u"a.com"_s, u"b.org"_s}, u"mDomainTableData"_s);
    storedDefaults().synchronize();
    auto* enabled = pane().findChild<QCheckBox*>(u"mEnabledCheckbox"_s);
    ASSERT_NE(enabled, nullptr);
    EXPECT_FALSE(enabled->isChecked());
    toggle(enabled);
    EXPECT_EQ(saved(u"mHTML5EnabledState"_s), QVariant(qint64(1)));
    ASSERT_EQ(table()->count(), 2);
    EXPECT_FALSE(button(u"mDeleteButton"_s)->isEnabled());

    // An added row is open for typing and stored only once it is edited.
    QTest::mouseClick(button(u"mAddButton"_s), Qt::LeftButton);
    ASSERT_EQ(table()->count(), 3);
    EXPECT_EQ(table()->item(2)->text(), u"newdomain.com"_s);
    EXPECT_EQ(savedDomains(), (QStringList{u"a.com"_s, u"b.org"_s}));
    typeIntoEditor(u"c.net"_s);
    EXPECT_TRUE(domainsSaved({u"a.com"_s, u"b.org"_s, u"c.net"_s}));

    table()->setFocus();
    table()->setCurrentRow(1);
    QTest::keyClick(table(), Qt::Key_F2);
    typeIntoEditor(u"kept.org"_s);
    EXPECT_TRUE(domainsSaved({u"a.com"_s, u"kept.org"_s, u"c.net"_s}));

    table()->setCurrentRow(0);
    ASSERT_TRUE(button(u"mDeleteButton"_s)->isEnabled());
    QTest::mouseClick(button(u"mDeleteButton"_s), Qt::LeftButton);
    EXPECT_EQ(savedDomains(), (QStringList{u"kept.org"_s, u"c.net"_s}));
    EXPECT_EQ(table()->count(), 2);
    EXPECT_EQ(table()->item(0)->text(), u"kept.org"_s);

    // A deletion saves a pending added row too.
    QTest::mouseClick(button(u"mAddButton"_s), Qt::LeftButton);
    QTest::keyClick(table()->findChild<QLineEdit*>(), Qt::Key_Escape);
    table()->setCurrentRow(0);
    QTest::mouseClick(button(u"mDeleteButton"_s), Qt::LeftButton);
    EXPECT_EQ(savedDomains(), (QStringList{u"c.net"_s, u"newdomain.com"_s}));
}
