"""The font of a desktop, for one program."""

SETTINGS = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <include>/etc/fonts/fonts.conf</include>
  <match target="pattern">
    <test name="family"><string>sans-serif</string></test>
    <edit name="family" mode="prepend" binding="strong"><string>{}</string></edit>
  </match>
</fontconfig>
"""


def environment_with_font(folder, name):
    """The environment in which a program finds a font to be the desktop's own; its settings go to a folder."""
    path = folder / f"{name}.fonts.conf"
    path.write_text(SETTINGS.format(name))
    return {"FONTCONFIG_FILE": str(path)}
