""""Check for Updates...", against a real server on the loopback.

A build with tests asks the server that KORVANE_SITE names, so it is that one which is tested here;
what a user runs looks at no such variable, and that is tested too."""

import os
import pathlib
import subprocess
import time

from support.editors import Mousepad
from support.history import clip
from support.korvane import PROGRAM
from support.panel_menu import PanelMenu
from support.settings import SettingsTest
from support.status_menu import StatusMenu
from support.version_server import VersionServer
from support.waiting import wait_for

WITH_SWITCH = os.environ.get("KORVANE_DEV", str(pathlib.Path(__file__).resolve().parents[2] / "build/dev/korvane"))
CHECK = 1  # the line of the panel's menu
AVAILABLE, UP_TO_DATE, FAILED = ("Korvane update available", "Korvane is up to date",
                                 "Korvane could not check for updates")
DOWNLOAD = "http://127.0.0.1:9/get?it=now"
BROWSER = """[Desktop Entry]
Type=Application
Name=A browser
Exec=/bin/sh -c 'printf %%s "$1" >"{target}"' browser %u
MimeType=x-scheme-handler/http;
"""


class UpdateTest(SettingsTest):
    def start(self, site, program=WITH_SWITCH):
        self.start_korvane([clip("one"), clip("two")], starts=False, program=program,
                           environment={"KORVANE_SITE": site, "no_proxy": "*"})
        self.opened = self.desk.folder / "opened"
        applications = self.korvane.home / "data/applications"
        applications.mkdir(parents=True)
        (applications / "a-browser.desktop").write_text(BROWSER.format(target=self.opened))
        settings = self.korvane.home / "config/mimeapps.list"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text("[Default Applications]\nx-scheme-handler/http=a-browser.desktop\n")
        self.korvane.start()

    def serve(self, **document):
        self.server = VersionServer(self.desk, **document)
        self.start(self.server.site)

    def check(self):
        self.korvane.open()
        PanelMenu(self.desk, self.korvane).choose(CHECK)

    def alerts(self, title):
        return [window for window in self.screen.find("korvane") if self.screen.title(window) == title]

    def wait_for_alert(self, title):
        """The alert, when it has the keyboard."""
        alert = wait_for(f"{title!r}", lambda: self.alerts(title))[0]
        wait_for(f"{title!r} has the keyboard", lambda: self.screen.has_keyboard(alert))
        return alert

    def wait_until_answered(self, title):
        wait_for(f"{title!r} is gone", lambda: not self.alerts(title))

    def offer(self):
        """A newer version is offered."""
        self.serve(version="999.0", url=DOWNLOAD, notes="Many things are better.")
        self.check()
        return self.wait_for_alert(AVAILABLE)

    def test_nothing_is_sent_before_the_user_asks(self):
        self.serve(version="999.0", url=DOWNLOAD)
        self.korvane.turn()
        self.assertEqual(self.server.questions, [])

    def test_a_newer_version_is_offered_and_its_address_opened_in_the_browser(self):
        self.offer()
        self.korvane.wait_until_closed()
        path, fields = self.server.questions[0]
        self.assertEqual(path, "/korvane/version.json")
        self.assertRegex(fields["User-Agent"], r"^Korvane/[0-9.]+$")
        self.assertFalse(self.opened.exists())

        self.keys.press("Return")

        self.wait_until_answered(AVAILABLE)
        wait_for("the browser is given the address", lambda: self.opened.exists() and self.opened.read_text() == DOWNLOAD)

    def test_escape_is_later(self):
        self.offer()
        self.keys.press("Escape")
        self.wait_until_answered(AVAILABLE)
        self.assertTrue(self.korvane.is_running())
        self.assertFalse(self.opened.exists())

    def test_what_is_no_web_address_is_not_opened(self):
        secret = self.desk.folder / "a-file.txt"
        secret.write_text("")
        self.serve(version="999.0", url=f"file://{secret}")
        self.check()
        self.wait_for_alert(AVAILABLE)
        self.keys.press("Return")
        self.wait_until_answered(AVAILABLE)
        before = self.desk.clients()
        self.korvane.turn()
        self.assertFalse(self.opened.exists())
        self.assertEqual(self.desk.clients(), before)

    def test_while_the_alert_is_open_copies_are_captured_and_the_shortcut_works(self):
        alert = self.offer()
        self.clipboard.set("meanwhile")
        self.history.wait_for_texts(["meanwhile", "one", "two"])

        self.korvane.open()
        self.assertTrue(self.screen.is_viewable(alert))
        self.keys.press("Down")
        wait_for("the panel hears keys", lambda: self.clipboard.get() == b"one")
        self.korvane.close()

        wait_for("the alert has the keyboard again", lambda: self.screen.has_keyboard(alert))
        self.keys.press("Escape")
        self.wait_until_answered(AVAILABLE)

    def test_while_the_alert_is_open_a_clip_is_chosen_and_pasted_where_the_user_goes(self):
        editor = Mousepad(self.desk)
        alert = self.offer()
        self.korvane.open()
        self.keys.press("Down")
        wait_for("the clip is on the clipboard", lambda: self.clipboard.get() == b"two")
        self.korvane.close()

        editor.to_front()
        editor.select_all()
        self.keys.press("Control_L", "v")

        editor.shows("two")
        self.assertTrue(self.screen.is_viewable(alert))

    def test_an_older_version_is_up_to_date_and_the_status_items_menu_checks_too(self):
        self.serve(version="0.0.1", url=DOWNLOAD)
        if self.desk.kind == "openbox":  # whose tray is told of the menu by the bus
            StatusMenu(self.korvane.process.pid).choose("Check for Updates...")
        else:
            self.check()
        self.wait_for_alert(UP_TO_DATE)
        self.keys.press("Return")
        self.wait_until_answered(UP_TO_DATE)

    def test_two_checks_at_once_give_one_alert(self):
        self.serve(version="999.0", url=DOWNLOAD)
        self.server.may_answer.clear()
        self.check()
        self.korvane.close()
        self.check()
        wait_for("both have asked", lambda: len(self.server.questions) == 2)
        self.server.may_answer.set()
        self.wait_for_alert(AVAILABLE)
        self.korvane.turn()
        self.assertEqual(len(self.alerts(AVAILABLE)), 1)

        wait_for("the alert has the keyboard again", lambda: self.screen.has_keyboard(self.alerts(AVAILABLE)[0]))
        self.keys.press("Escape")

        self.wait_until_answered(AVAILABLE)
        self.korvane.turn()
        self.assertEqual(self.alerts(AVAILABLE), [])

    def test_a_check_that_fails_is_told(self):
        self.serve(version=7)
        self.check()
        self.wait_for_alert(FAILED)

    def shown_texts(self):
        """What the alerts say, as assistive technology is told."""
        self.reader.turn()
        program = wait_for("the program shows itself", lambda: self.reader.program(self.korvane.process.pid))
        return [each.name for each in program.descendants() if each.role == "label" and "showing" in each.states()]

    def expect_text(self, title, text):
        self.check()
        self.wait_for_alert(title)
        wait_for(lambda: f"{text!r} is shown; it says {self.shown_texts()}", lambda: text in self.shown_texts())

    def test_the_same_version_is_up_to_date(self):
        version = subprocess.run([WITH_SWITCH, "--version"], capture_output=True, text=True, check=True).stdout.split()[-1]
        self.serve(version=version)
        self.expect_text(UP_TO_DATE, "You're running the latest version.")

    def test_without_notes_the_version_alone_is_told(self):
        self.serve(version="999.0", url=DOWNLOAD)
        self.expect_text(AVAILABLE, "Version 999.0 is available.")

    def test_with_empty_notes_the_version_alone_is_told(self):
        self.serve(version="999.0", url=DOWNLOAD, notes="")
        self.expect_text(AVAILABLE, "Version 999.0 is available.")

    def test_notes_are_told_after_the_version(self):
        self.serve(version="999.0", url=DOWNLOAD, notes="Many things.\nMany more.")
        self.expect_text(AVAILABLE, "Version 999.0 is available.\n\nRelease notes: Many things.\nMany more.")

    def test_without_an_address_nothing_is_opened(self):
        self.serve(version="999.0", notes=None)
        self.expect_text(AVAILABLE, "Version 999.0 is available.")
        self.keys.press("Return")
        self.wait_until_answered(AVAILABLE)
        self.korvane.turn()
        self.assertFalse(self.opened.exists())

    def test_an_answer_that_is_no_json_is_a_check_that_fails(self):
        self.serve(body=b"<html>Welcome to the hotel</html>")
        self.check()
        self.wait_for_alert(FAILED)

    def test_a_server_that_never_answers_is_given_five_seconds(self):
        self.serve(version="999.0", url=DOWNLOAD)
        self.server.may_answer.clear()
        self.check()
        began = time.monotonic()
        self.korvane.close()
        self.clipboard.set("meanwhile")
        self.history.wait_for_texts(["meanwhile", "one", "two"])
        self.assertEqual(self.alerts(FAILED), [])

        self.wait_for_alert(FAILED)

        self.assertGreater(time.monotonic() - began, 4)

    def test_it_quits_at_once_while_a_check_is_under_way(self):
        self.serve(version="999.0", url=DOWNLOAD)
        self.server.may_answer.clear()
        self.check()
        wait_for("the server is asked", lambda: self.server.questions)
        began = time.monotonic()
        self.assertEqual(self.korvane.quit(), 0)
        self.assertLess(time.monotonic() - began, 2)

    def test_what_a_user_runs_is_led_to_no_other_site(self):
        server = VersionServer(self.desk, version="999.0", url=DOWNLOAD)
        self.start(server.site, program=PROGRAM)
        self.check()
        # Its own site has a name that exists nowhere.
        self.wait_for_alert(FAILED)
        self.assertEqual(server.questions, [])
