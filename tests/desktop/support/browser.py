"""Chromium with one page that holds one text area, whose contents the page itself reports."""

import http.server
import json
import threading

from support.programs import Program
from support.waiting import wait_for

PAGE = """<!doctype html><meta charset="utf-8"><title>page</title>
<textarea autofocus style="width: 40em; height: 20em"></textarea>
<script>
const area = document.querySelector("textarea");
area.value = %s;
let number = 0;
let keys = 0;
const report = () => fetch("/state", { method: "POST", body: JSON.stringify({
    number: ++number, keys, value: area.value, focused: document.hasFocus() && document.activeElement === area,
    selected: area.selectionEnd - area.selectionStart }) });
for (const name of ["input", "focus", "blur", "select"])
    area.addEventListener(name, report);
document.addEventListener("selectionchange", report);
document.addEventListener("keydown", () => { ++keys; report(); });
report();
</script>"""


class Chromium(Program):
    def __init__(self, desk, text=""):
        self.state = {"number": 0, "keys": 0, "value": None, "focused": False, "selected": 0}
        self.server = serve(PAGE % json.dumps(text), self.report)
        # It is run as root in some places, where its own sandbox is not to be had.
        command = ["chromium", "--no-sandbox", "--no-first-run", "--disable-gpu", "--disable-background-networking",
                   "--disable-component-update", "--disable-sync", "--no-default-browser-check", "--password-store=basic",
                   f"--user-data-dir={desk.folder / 'chromium'}", f"--app=http://127.0.0.1:{self.server.server_port}/"]
        super().__init__(desk, command, "chromium", title="page")
        self.to_front()
        # The page has the focus a while before keys reach it; the first ones are lost.
        desk.keys.press_until("the text area hears keys", ["Shift_L"], lambda: self.state["focused"] and self.state["keys"])

    def report(self, state):
        # They may overtake one another.
        if state["number"] > self.state["number"]:
            self.state = state

    def copy_all(self):
        before = self.desk.clipboard.count()
        self.desk.keys.press("Control_L", "a")
        wait_for("all of the text area is selected", lambda: self.state["selected"] > 0)
        self.desk.keys.press("Control_L", "c")
        wait_for("Chromium has copied", lambda: self.desk.clipboard.count() > before)

    def shows(self, text):
        wait_for(lambda: f"the text area holds {text[:80]!r}; it holds {self.state['value'][:80]!r}",
                 lambda: self.state["value"] == text)

    def end(self):
        super().end()
        self.server.shutdown()
        self.server.server_close()


def serve(page, report):
    """A server on the loopback interface that gives the page and takes its reports."""

    class Handler(http.server.BaseHTTPRequestHandler):
        def do_GET(self):
            self.answer(page.encode() if self.path == "/" else b"")

        def do_POST(self):
            report(json.loads(self.rfile.read(int(self.headers["Content-Length"]))))
            self.answer(b"")

        def answer(self, body):
            self.send_response(200)
            self.send_header("Content-Type", "text/html; charset=utf-8")
            self.send_header("Content-Length", str(len(body)))
            self.end_headers()
            self.wfile.write(body)

        def log_message(self, *_):
            pass

    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server
