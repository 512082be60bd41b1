#!/usr/bin/env python3
"""Makes the extension for each browser from the one source in this folder.

Usage: build.py --version VERSION OUTPUT

Writes OUTPUT/chromium/ and OUTPUT/firefox/, each a folder that the browser can load, and OUTPUT/velmorin.xpi, the
latter as the file that Firefox installs. The same source always gives the same bytes.
"""

import argparse
import json
import shutil
import sys
import zipfile
from pathlib import Path

SOURCES = ["background.mjs", "bridge.mjs"]

COMMON = {
    "manifest_version": 3,
    "name": "Dravoni",
    "description": "Tells Dravoni which pages are open while you focus. Nothing leaves this computer.",
    "permissions": ["alarms", "nativeMessaging", "tabs"],
}

# The public half of a key whose private half was thrown away: it gives the extension the same identifier wherever it
# is loaded from. The program knows that identifier (app/platform/linux/browsers/HostManifest.h).
CHROMIUM_KEY = (
    "MIIBIjANBgkqhkiG9w0BAQEFAAOCAQ8AMIIBCgKCAQEA9JlAmZ0Ws5PJxpDj0qvk8Y20rWFXCUvZ4tH5mrY32kf++k1buIe0snjIMmrGJMzIW7Ew"
    "kCm/38qxO6OOmgWB2HdlIxabVlIMkxsJGkoKCSiuFCTuJwoU4ynZcLdc70AuAzuu7dyz8QTqyhfI6Ibxxh/L22fdo26tkorFD+m9RPZJ5wWZ5YaZ"
    "RNNSanOZYAeNemLGd1WLbO/omw9EcIYQ3+MFfY0krLCFQzninpKocMGh9hzhOR9NHjQbx3a7q/8WrT0a92upQ8v5h1xjxZQiZn+sxOhkwfQIz33i"
    "CxnX6pq7KsRI9DkzgWSn5FKpY8St2fI1PdU4KRrbVmzOb16OSwIDAQAB"
)
FIREFOX_ID = "velmorin@kestrava.com"

MANIFESTS = {
    "chromium": {
        **COMMON,
        "key": CHROMIUM_KEY,
        "minimum_chrome_version": "120",
        "background": {"service_worker": "background.mjs", "type": "module"},
    },
    "firefox": {
        **COMMON,
        "background": {"scripts": ["background.mjs"], "type": "module"},
        "browser_specific_settings": {
            "gecko": {
                "id": FIREFOX_ID,
                "strict_min_version": "121.0",
                "data_collection_permissions": {"required": ["none"]},
            }
        },
    },
}


def write_folder(folder, manifest, source):
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    (folder / "manifest.json").write_text(json.dumps(manifest, indent=2) + "\n", encoding="utf-8")
    for name in SOURCES:
        shutil.copyfile(source / name, folder / name)


def write_archive(path, folder):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
        for file in sorted(folder.iterdir()):
            entry = zipfile.ZipInfo(file.name)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            archive.writestr(entry, file.read_bytes())


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--version", required=True)
    parser.add_argument("output", type=Path)
    arguments = parser.parse_args()
    source = Path(__file__).resolve().parent
    for browser, manifest in MANIFESTS.items():
        write_folder(arguments.output / browser, {**manifest, "version": arguments.version}, source)
    write_archive(arguments.output / "velmorin.xpi", arguments.output / "firefox")
    return 0


if __name__ == "__main__":
    sys.exit(main())
