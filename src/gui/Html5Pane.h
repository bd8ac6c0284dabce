#pragma once

#include <QWidget>

class HTML5Manager;
class QCheckBox;
class QListWidget;
class QPushButton;

// HTML5 web storage: the switch that turns its erasing on, and the editable
// list of sites whose storage is kept.
class Html5Pane : public QWidget {
    Q_OBJECT

public:
    explicit Html5Pane(HTML5Manager& html5, QWidget* parent = nullptr);

private:
    void addDomain();
    void deleteDomain();
    void showDomains();
    void tableViewSelectionDidChange();

    HTML5Manager& m_html5;
    QCheckBox* m_enabled;
    QListWidget* m_domainTable;
    QPushButton* m_add;
    QPushButton* m_delete;
};
