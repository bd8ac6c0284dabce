#pragma once

#include <QDialog>

struct RunPlan;
class QLabel;
class QTreeWidget;

// What a run would do, from a preview: per application what it would erase and
// rewrite, each expandable to its paths with their sizes, then the totals, and
// a Shred button that starts the run.
//
// Lives on the main thread.
class PreviewWindow : public QDialog {
    Q_OBJECT

public:
    explicit PreviewWindow(QWidget* parent = nullptr);

    void showPlan(const RunPlan& plan);
    QTreeWidget* tree() const { return m_tree; }

signals:
    void shredRequested();

private:
    QTreeWidget* m_tree;
    QLabel* m_totals;
};
