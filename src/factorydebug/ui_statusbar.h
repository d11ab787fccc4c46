#pragma once

class KvIconButton;
class QLabel;
class QWidget;

/// The widgets of the status bar: return button, title, exit button.
class UI_StatusBar
{
public:
    UI_StatusBar();

    /// Gives \a host its place, the top 66 rows of an 800 pixels wide screen, and fills it.
    void setupUi(QWidget *host);

    QWidget *host;
    KvIconButton *returnButton;
    QLabel *titleLabel;
    KvIconButton *exitButton;

private:
    void setupReturnButton();
    void setupTitleLabel();
    void setupExitButton();
};
