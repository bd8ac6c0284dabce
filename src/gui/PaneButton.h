#pragma once

#include <QPushButton>

// A pane's push button, found by its object name; Return never presses it.
QPushButton* paneButton(const QString& title, const char* objectName, QWidget* parent);
