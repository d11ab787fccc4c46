#pragma once

class QWidget;

/// Has a page paint its own background, which no plain QWidget subclass does by itself, in black as
/// \a styleSheet says it.
void makeBlackPage(QWidget *page, const char *styleSheet = "background-color:rgb(0, 0, 0);");
