"""Opens the page of the protocol in a browser: page_check.py PAGE SCREENSHOT. It filters, follows an anchor, says nothing."""

import sys
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.common.by import By

options = webdriver.ChromeOptions()
for word in ("--headless=new", "--no-sandbox", "--window-size=1100,1600", "--allow-file-access-from-files"):
    options.add_argument(word)
options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
browser = webdriver.Chrome(options=options)
try:
    page = Path(sys.argv[1]).resolve().as_uri()
    browser.get(page)

    def shown():
        return [each.get_attribute("id") for each in browser.find_elements(By.TAG_NAME, "article") if each.is_displayed()]

    everything = len(shown())
    browser.find_element(By.ID, "find").send_keys("beacon interval")
    few = shown()
    assert "wlan_set_beacon_interval" in few and "wlan_get_ssid" not in few, few
    browser.save_screenshot(sys.argv[2])
    browser.get(page + "#wlan_get_ssid")
    top = browser.execute_script("return document.getElementById('wlan_get_ssid').getBoundingClientRect().top")
    assert 0 <= top < 300, top
    said = [entry for entry in browser.get_log("browser") if entry["level"] in ("SEVERE", "WARNING")]
    assert not said, said
    print(f"{everything} articles, {len(few)} of them about a beacon interval, no word on the console")
finally:
    browser.quit()
