#pragma once

#include "simulator/console/screenreader.h"

#include <QStringList>

#include <functional>

struct ViewOnScreen;

/// A technician who opens every page, list and dialog of the plug-in, whatever language it is in.
class PageTour
{
public:
    /// Is told what is seen there, and what lies on top: the whole screen, or a box over it.
    using Look = std::function<void(const QString &state, QWidget &top)>;

    PageTour(ViewOnScreen &screen, Look look);

    /// All of it, from the menu to the menu. Fails the test when something does not open.
    void run();

private:
    void press(const QString &id);
    void pressText(const char *context, const char *text);
    void look(const QString &state);
    void look(const QString &state, QWidget &top);
    void visit(
        const QString &page, const std::function<void()> &lookAround = [] {});
    void visitLists();
    void visitEyePage();
    void visitSystemPage();
    void openPackage(const QStringList &options, const char *verified);
    void openUpdateDialogs();
    void openReceiverBox();
    void switchCapture();

    ViewOnScreen &m_screen;
    const Look m_look;
    const simulator::ScreenReader m_reader;
};
