#pragma once

/// Shapes of the screen's mouse pointer that the program uses.
namespace MousePointer {
inline constexpr int Default = 0;
inline constexpr int Hourglass = 11;
} // namespace MousePointer

/// The shape that the pointer has now, over every window of the program.
int mousePointer();

/// Gives the pointer a shape until it is set again.
void setMousePointer(int shape);

/// Shows the hourglass for as long as it lives, then the shape that was there before, also when
/// the work in between fails.
class HourglassPointer
{
public:
    HourglassPointer()
        : m_before(mousePointer())
    {
        setMousePointer(MousePointer::Hourglass);
    }
    ~HourglassPointer() { setMousePointer(m_before); }
    HourglassPointer(const HourglassPointer &) = delete;
    HourglassPointer &operator=(const HourglassPointer &) = delete;

private:
    int m_before;
};
