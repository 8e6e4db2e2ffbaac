#!/usr/bin/python3
"""What a browser gets from the running program: web_pages.py PROGRAM."""
import http.client
import json
import pathlib
import re
import subprocess
import sys
import tempfile

data = tempfile.TemporaryDirectory()
folder = pathlib.Path(data.name)
program = subprocess.Popen([sys.argv[1], "--data", str(folder), "--drive", "-"], text=True,
                           stdin=subprocess.PIPE, stdout=subprocess.PIPE)


def do(*commands):
    for command in commands:
        program.stdin.write(command + "\n")
        program.stdin.flush()
        answer = json.loads(program.stdout.readline())
    return answer


def ask(method, path, host="docs.localhost"):
    connection = http.client.HTTPConnection("127.0.0.1", port)
    connection.putrequest(method, path, skip_host=True)
    connection.putheader("Host", host)
    connection.endheaders()
    answer = connection.getresponse()
    return answer.status, answer.getheader("Content-Type"), answer.read()


do("tool frmMain.Documents", "set frmListnumPrompt.txtPropertyId 100123", "press frmListnumPrompt.cmdOK",
   "wait frmAddDocument", "select frmAddDocument.lvFiles 0", "press frmAddDocument.cmdPreview")
address = do("browser")["opened"][-1]
port, document = re.fullmatch(r"http://docs\.localhost:(\d+)(/VELTRANE/Docs/2/3/100123_1\.pdf)", address).groups()
(stored,) = folder.rglob("100123_1.pdf")
assert ask("GET", document) == (200, "application/pdf", stored.read_bytes())
assert ask("HEAD", document)[::2] == (200, b"")
for page in "DocManager", "CreatePDF":
    status, kind, text = ask("GET", f"/Tutorials/DocManager/{page}.htm", f"127.0.0.1:{port}")
    assert (status, kind) == (200, "text/html; charset=utf-8"), page
    assert b'href="/Tutorials/help.css"' in text and b"</html>" in text, page
assert ask("GET", "/Tutorials/help.css")[1].startswith("text/css")

for method, path, host, status in [
        ("GET", document.replace("_1.", "_2."), "docs.localhost", 404),  # a link
        ("GET", document.replace("_1.", "_01."), "docs.localhost", 404),
        ("GET", document.replace("2/3", "3/2"), "docs.localhost", 404),
        ("GET", document.replace("100123", "%3100123") + "%00", "docs.localhost", 404),
        ("GET", "/%2e%2e/%2e%2e/host.db", "docs.localhost", 404),
        ("POST", document, "docs.localhost", 405),
        ("GET", document, "evil.example:80", 421),
        ("GET", document, "localhost.example", 421)]:
    assert ask(method, path, host)[0] == status, (method, path, host, ask(method, path, host))
do("quit")
sys.exit(program.wait())
