"""A page in headless Chromium, as a user has it before him."""

import json
import pathlib
import shutil
import time

from selenium import webdriver
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.support.ui import Select, WebDriverWait

SWITCHES = ("--headless=new --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking "
            "--disable-component-update --disable-sync --disable-dev-shm-usage --window-size=1280,900").split()


class Downloads:
    def __init__(self, folder):
        self.folder = folder
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)

    def taken(self, name):
        """The file of this name, once it is whole; the next one may have the name again."""
        path = self.folder / name
        deadline = time.monotonic() + 10
        while not path.exists() or list(self.folder.glob("*.crdownload")):
            assert time.monotonic() < deadline, f"{name} was not downloaded: {list(self.folder.iterdir())}"
            time.sleep(0.02)
        return path.rename(self.folder / f"{time.monotonic_ns()}-{name}")


class Page:
    def __init__(self, path, downloads):
        options = webdriver.ChromeOptions()
        options.binary_location = shutil.which("chromium")
        for switch in SWITCHES:
            options.add_argument(switch)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        self.driver = webdriver.Chrome(options=options, service=Service(shutil.which("chromedriver")))
        self.downloads = Downloads(downloads)
        self.driver.execute_cdp_cmd("Browser.setDownloadBehavior",
                                    {"behavior": "allow", "downloadPath": str(downloads.resolve())})
        self.address = pathlib.Path(path).resolve().as_uri()
        self.driver.get(self.address)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.driver.quit()

    def script(self, text):
        return self.driver.execute_script(text)

    def one(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def text(self, selector):
        return self.one(selector).text

    def texts(self, selector):
        """Without waiting for each: as they stand in the page, also where they are out of view."""
        return self.driver.execute_script(
            "return Array.from(document.querySelectorAll(arguments[0]), (one) => one.textContent)", selector)

    def is_hidden(self, selector):
        return not self.one(selector).is_displayed()

    def click(self, selector):
        place = self.one(selector)
        self.driver.execute_script("arguments[0].scrollIntoView({block: 'center'})", place)
        place.click()

    def pick(self, table, cells):
        """Clicks the row that begins with these cells."""
        for row in self.driver.find_elements(By.CSS_SELECTOR, f"#{table} tbody tr"):
            if [cell.text for cell in row.find_elements(By.TAG_NAME, "td")][:len(cells)] == cells:
                self.driver.execute_script("arguments[0].scrollIntoView({block: 'center'})", row)
                row.click()
                return
        raise AssertionError(f"{table} has no row {cells}")

    def search(self, field, text):
        """Types into a field and waits until the page has taken it."""
        place = self.one(f"#{field}")
        place.clear()
        place.send_keys(text or " ")
        self.settle()

    def choose(self, field, value):
        Select(self.one(f"#{field}")).select_by_value(value)
        self.settle()

    def settle(self):
        """The page waits for a pause in the typing; a later timer of the page itself comes after that."""
        self.driver.execute_async_script("setTimeout(arguments[0], 100)")

    def press(self, *keys):
        for key in keys:
            ActionChains(self.driver).send_keys(getattr(Keys, key)).perform()

    def wait_for(self, selector):
        WebDriverWait(self.driver, 10).until(lambda driver: driver.find_elements(By.CSS_SELECTOR, selector))

    def resize(self, width, height):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                    {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})
        self.settle()

    def emulate(self, scheme="light", media=""):
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia",
                                    {"media": media, "features": [{"name": "prefers-color-scheme", "value": scheme}]})
        self.settle()

    def check_nothing_was_said_or_asked(self):
        """No word on the console, and no request but for the file itself and what it made."""
        assert self.driver.get_log("browser") == []
        messages = [json.loads(entry["message"])["message"] for entry in self.driver.get_log("performance")]
        asked = [message["params"]["request"]["url"] for message in messages
                 if message["method"] == "Network.requestWillBeSent"]
        assert self.address in asked, "the log of requests is empty"
        assert all(url == self.address or url.startswith(("blob:", "data:")) for url in asked), asked
