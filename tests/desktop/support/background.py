"""What a desktop shows behind its windows."""

from Xlib import X


class Background:
    """A window behind all others, in a colour that changes slowly from its top to its bottom, both given as
    (red, green, blue). It goes with the connection of the screen that it was made on."""

    def __init__(self, screen, top, bottom):
        root, everything = screen.root, screen.all()
        picture = root.create_pixmap(everything.width, everything.height, root.get_geometry().depth)
        pen = picture.create_gc()
        for line in range(everything.height):
            red, green, blue = (round(a + (b - a) * line / everything.height) for a, b in zip(top, bottom))
            pen.change(foreground=red << 16 | green << 8 | blue)
            picture.fill_rectangle(pen, 0, line, everything.width, 1)
        window = root.create_window(0, 0, everything.width, everything.height, 0, X.CopyFromParent, X.InputOutput,
                                    background_pixmap=picture, override_redirect=True)
        window.configure(stack_mode=X.Below)
        window.map()
        screen.display.sync()
