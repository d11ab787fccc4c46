#pragma once

namespace simulator
{

/// Makes Qt's refusal to start without a display one sentence and an exit status of this program,
/// in place of an abort. To be alive while the application object is made.
class DisplayCheck
{
public:
    /// \a headless chooses a display that shows nothing, which is always there.
    explicit DisplayCheck(bool headless);
    ~DisplayCheck();
    DisplayCheck(const DisplayCheck &) = delete;
    DisplayCheck &operator=(const DisplayCheck &) = delete;
};

} // namespace simulator
