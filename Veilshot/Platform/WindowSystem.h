#pragma once

class QWindow;

namespace Veilshot {

/// What windows need of the desktop and Qt has no word for. On X11, if it was built for that; elsewhere each
/// does what the desktop allows. Main thread only.
namespace WindowSystem {

/// Leaves a window out of task bars and switchers and puts it on every desktop. To be called before each
/// showing, because window managers forget.
void makeTransient(QWindow& window);

/// Raises a window and gives it the keyboard, whichever application has that. For what the user has
/// just asked for.
void activate(QWindow& window);

/// Brings a window back from wherever it is: hidden, minimized, behind others. For what the user has just
/// asked for.
void present(QWindow& window);

/// Whether what is behind a window can show through it.
bool canBeTranslucent();

/// Whether a button of the pointer is held down, in whichever window. False where only the window itself is
/// told.
bool isPointerButtonHeld();

} // namespace WindowSystem

} // namespace Veilshot
