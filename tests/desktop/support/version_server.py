"""A web server on the loopback that tells which version is the newest."""

import contextlib
import json
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer


class VersionServer:
    """Answers at once, unless it is told to hold its answers back: with the document of these members, or
    with other bytes."""

    def __init__(self, desk, body=None, **document):
        self.body = json.dumps(document).encode() if body is None else body
        self.questions = []
        self.may_answer = threading.Event()
        self.may_answer.set()
        self.server = ThreadingHTTPServer(("127.0.0.1", 0), self.handler())
        self.server.daemon_threads = True
        self.site = f"http://127.0.0.1:{self.server.server_port}"
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        desk.programs.append(self)

    def handler(self):
        told = self

        class Handler(BaseHTTPRequestHandler):
            def do_GET(self):
                told.questions.append((self.path, dict(self.headers)))
                told.may_answer.wait(60)
                with contextlib.suppress(OSError):  # who has asked may be gone
                    self.answer()

            def answer(self):
                self.send_response(200)
                self.send_header("Content-Length", str(len(told.body)))
                self.end_headers()
                self.wfile.write(told.body)

            def log_message(self, *_):
                pass

        return Handler

    def end(self):
        self.may_answer.set()
        self.server.shutdown()
        self.server.server_close()
