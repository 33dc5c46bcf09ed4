"""Opens every page of the documentation site in a browser, from a server and as files, follows
every link, searches for every page, and looks at each page in a wide and in a narrow window.

    site.py DIRECTORY
"""

import functools
import http.server
import json
import os
import sys
import threading
import time
from pathlib import Path
from urllib.parse import quote, urldefrag, urlparse

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service

WIDTHS = (1280, 360)  # CSS pixels: a desktop and a small telephone
LEAST_TEXT = 60  # characters of the shortest page
SEARCH_SECONDS = 20
WITHOUT_CONTENT = ("genindex.html", "search.html")
# The browser runs this in each page.
LOOK = """
const main = document.querySelector('[role=main]');
return {
  heading: main?.querySelector('h1')?.firstChild.textContent,
  text: main?.innerText.trim() ?? '',
  ids: [...document.querySelectorAll('[id]')].map(element => element.id),
  links: [...document.querySelectorAll('a[href]')].map(link => link.href),
  pictures: [...document.images].filter(image => image.naturalWidth == 0).map(image => image.src),
  scripts: !document.documentElement.classList.contains('no-js'),
};
"""
# The pages found, and whether each has its excerpt: only then the browser requests nothing more.
FOUND = """
const found = [...document.querySelectorAll('#search-results li')];
return {
  pages: found.map(entry => entry.querySelector('a').href.split(/[?#]/)[0]),
  complete: Search.status?.innerText.includes('finished') &&
      found.every(entry => entry.childElementCount > 1),
};
"""
# Whether the page is wider than the window, or than a box in the window that scrolls.
OVERFLOW = """
let box = document.querySelector('[role=main]');
for (; box && box != document.scrollingElement; box = box.parentElement)
  if (getComputedStyle(box).overflowX != 'visible' && box.scrollWidth > box.clientWidth)
    return true;
return document.scrollingElement.scrollWidth > document.scrollingElement.clientWidth;
"""


class Site:
    """The pages as files, and as what a server sends."""

    def __init__(self, folder):
        self.folder = folder.resolve()
        handler = functools.partial(Handler, directory=str(self.folder))
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        self.served = f"http://127.0.0.1:{self.server.server_port}/"
        self.files = f"{self.folder.as_uri()}/"


class Handler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):  # the browser reports what it does not get
        pass


class Browser:
    """Headless Chromium, which notes what it requests and what it complains about."""

    def __init__(self, home):
        options = Options()
        options.binary_location = "/usr/bin/chromium"
        for switch in ("--headless=new", "--disable-gpu", "--disable-dev-shm-usage",
                       "--disable-background-networking", f"--user-data-dir={home}"):
            options.add_argument(switch)
        if os.getuid() == 0:
            options.add_argument("--no-sandbox")
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        self.driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)

    def open(self, address, width=WIDTHS[0]):
        self.resize(width)
        self.driver.get(address)

    def resize(self, width):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False})

    def run(self, script):
        return self.driver.execute_script(script)

    def complaints(self, base):
        """What went wrong since the last call; `base` is the beginning of all allowed addresses."""
        for entry in self.driver.get_log("browser"):
            yield f"console: {entry['message']}"
        requests = set()  # of the pages; the browser makes requests of its own too
        for entry in self.driver.get_log("performance"):
            message = json.loads(entry["message"])["message"]
            method, what = message["method"], message["params"]
            if method == "Network.requestWillBeSent" and what["documentURL"].startswith(base):
                requests.add(what["requestId"])
                if not what["request"]["url"].startswith((base, "data:")):
                    yield f"from elsewhere: {what['request']['url']}"
            elif what.get("requestId") in requests:
                if method == "Network.loadingFailed":
                    yield f"not loaded: {what['errorText']}"
                elif method == "Network.responseReceived" and what["response"]["status"] >= 400:
                    yield f"status {what['response']['status']}: {what['response']['url']}"


class Check:
    def __init__(self, site, browser):
        self.site, self.browser = site, browser
        self.pages = {}  # address without fragment -> what LOOK returns
        self.problems = []

    def complain(self, page, problem):
        self.problems.append(f"{page}: {problem}")

    def look(self, base, page):
        """Opens a page and returns what it holds."""
        self.browser.open(base + page)
        held = self.browser.run(LOOK)
        if page not in WITHOUT_CONTENT and (len(held["text"]) < LEAST_TEXT or not held["heading"]):
            self.complain(page, "is empty")
        if not held["scripts"]:
            self.complain(page, "its scripts do not run")
        for picture in held["pictures"]:
            self.complain(page, f"no picture: {picture}")
        for width in WIDTHS:
            self.browser.resize(width)
            if self.browser.run(OVERFLOW):
                self.complain(page, f"scrolls sideways in a window of {width} pixels")
        for complaint in self.browser.complaints(base):
            self.complain(page, complaint)
        return held

    def crawl(self):
        """Opens every page that a link leads to, from the first page on."""
        base = self.site.served
        waiting = ["index.html", "search.html"]
        while waiting:
            page = waiting.pop()
            if page in self.pages:
                continue
            self.pages[page] = self.look(base, page)
            for link in self.pages[page]["links"]:
                target = urldefrag(link).url
                if target.startswith(base) and target.endswith(".html"):
                    if (self.site.folder / target[len(base):]).exists():
                        waiting.append(target[len(base):])

    def follow_links(self):
        base = self.site.served
        count = 0
        for page, held in self.pages.items():
            for link in held["links"]:
                target, fragment = urldefrag(link)
                if not target.startswith(base):
                    if urlparse(target).scheme not in ("https", "mailto"):
                        self.complain(page, f"a link elsewhere: {link}")
                    continue
                count += 1
                name = target[len(base):]
                if not (self.site.folder / name).is_file():
                    self.complain(page, f"a link to nothing: {link}")
                elif fragment and fragment not in self.pages[name]["ids"]:
                    self.complain(page, f"a link to no place in a page: {link}")
        return count

    def find_orphans(self):
        for path in self.site.folder.rglob("*.html"):
            page = str(path.relative_to(self.site.folder))
            if page not in self.pages:
                self.complain(page, "no link leads to it")

    def open_files(self):
        for page in self.pages:
            self.look(self.site.files, page)

    def search(self, base, page, words, whole):
        self.browser.open(f"{base}search.html?q={quote(words)}")
        end = time.monotonic() + SEARCH_SECONDS
        while time.monotonic() < end:
            found = self.browser.run(FOUND)
            if base + page in found["pages"] and (found["complete"] or not whole):
                return
            time.sleep(0.05)
        self.complain(page, f"is not found by a search for: {words}")

    def search_all(self):
        wanted = [(page, held["heading"]) for page, held in self.pages.items()
                  if page not in WITHOUT_CONTENT and held["heading"]]
        wanted += [("reference/handles.html", "valueOr"), ("reference/tool.html", "exactlyOne")]
        for page, words in wanted:
            self.search(self.site.served, page, words, True)
            for complaint in self.browser.complaints(self.site.served):
                self.complain(page, f"search for {words}: {complaint}")

    def search_files(self):
        """A page that is a file gets no excerpts from other files, but finds them."""
        self.search(self.site.files, "reference/handles.html", "valueOr", False)


def main(folder, home):
    site = Site(folder)
    browser = Browser(home)
    check = Check(site, browser)
    try:
        check.crawl()
        links = check.follow_links()
        check.find_orphans()
        check.search_all()
        check.open_files()
        check.search_files()
    finally:
        browser.driver.quit()
    for problem in check.problems:
        print(problem, file=sys.stderr)
    print(f"{len(check.pages)} pages, {links} links, {len(check.problems)} problems")
    return 1 if check.problems or len(check.pages) < 20 else 0


if __name__ == "__main__":
    import tempfile
    with tempfile.TemporaryDirectory() as home_of_browser:
        sys.exit(main(Path(sys.argv[1]), home_of_browser))
