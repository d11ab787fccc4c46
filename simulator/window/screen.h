#pragma once

#include <QWidget>

namespace simulator
{

class BootScreen;
class HomeScreen;

/// The glass of the simulated unit, 800 x 480 pixels: the home screen at the bottom, whatever the
/// unit's software puts over it, and the boot screen over everything while the unit starts.
class Screen : public QWidget
{
    Q_OBJECT

public:
    static constexpr QSize resolution{800, 480};

    explicit Screen(QWidget *parent = nullptr);

    HomeScreen &homeScreen();

    /// Shows or hides the boot screen.
    void setBooting(bool booting);
    bool isBooting() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    HomeScreen *m_homeScreen;
    BootScreen *m_bootScreen;
};

} // namespace simulator
