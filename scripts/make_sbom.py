#!/usr/bin/env python3
"""Writes the list of what is linked into programs, libraries or the viewer, in CycloneDX JSON:

  make_sbom.py debian OUTPUT NAME FILE...    what the loader binds to these files of the build, what they load later, and the headers
  make_sbom.py windows OUTPUT NAME TRIPLET   the runtimes of the cross compiler, linked in, and the headers
  make_sbom.py viewer OUTPUT LIBRARIES       what the viewer's file holds; LIBRARIES is build/web-libraries

Names and versions are those of the packages of the build machine. The same build gives the same bytes: there is no time in it,
and its number is made of its contents.
"""
import json
import re
import subprocess
import sys
import uuid
from pathlib import Path
from urllib.parse import quote

ROOT = Path(__file__).resolve().parent.parent
HEADERS = ["libcxxopts-dev", "nlohmann-json3-dev"]
# As SPDX calls the licences in Debian's files.
SPDX = {"Expat": "MIT", "MIT": "MIT", "zlib": "Zlib", "Zlib": "Zlib", "Apache-2.0": "Apache-2.0", "BSL-1.0": "BSL-1.0"}


def output_of(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def version_of_project():
    return re.search(r"^project\(Hexlume VERSION ([0-9.]+)", (ROOT / "CMakeLists.txt").read_text(), re.M).group(1)


def package_of(file):
    """The Debian package of a file, which dpkg can know by its path before /usr was merged."""
    for path in [file, file.replace("/usr/lib", "/lib", 1)]:
        found = subprocess.run(["dpkg-query", "-S", path], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        if found.returncode == 0:
            return found.stdout.split(":")[0]
    sys.exit(f"make_sbom.py: no package has {file}")


def licence_of(package):
    """The licence of most of a package's files, where its list can be read by a program."""
    file = Path("/usr/share/doc") / package / "copyright"
    text = file.read_text(errors="replace") if file.exists() else ""
    found = re.search(r"^Files: \*\n(?:.*\n)*?License: *(\S[^\n]*)", text, re.M)
    if not text.startswith("Format:") or not found:
        return []
    name = found.group(1).strip()
    return [{"license": {"id": SPDX[name]} if name in SPDX else {"name": name}}]


def component(package, linkage, architecture=None):
    installed = f"{package}:{architecture}" if architecture else package
    version = output_of("dpkg-query", "-W", "-f", "${Version}\n", installed).split()[0]
    purl = f"pkg:deb/debian/{quote(package)}@{quote(version)}?distro=debian-12"
    if architecture:
        purl += f"&arch={architecture}"
    row = {"type": "library", "bom-ref": purl, "name": package, "version": version, "purl": purl,
           "properties": [{"name": "hexlume:linkage", "value": linkage}]}
    licences = licence_of(package)
    if licences:
        row["licenses"] = licences
    return row


def needed_libraries(file):
    return re.findall(r"\(NEEDED\).*\[(.*)\]", output_of("readelf", "-dW", str(file)))


def loaded_libraries(file):
    """Those that a file names apart from those that it needs: it loads them when they are wanted."""
    named = {name.decode() for name in re.findall(rb"(?<=\0)lib[\w.+-]+\.so\.\d+(?=\0)", Path(file).read_bytes())}
    return sorted(named - set(needed_libraries(file)))


def debian_components(files):
    machine = output_of("dpkg", "--print-architecture").strip()
    packages = {}
    for libraries, linkage in [(loaded_libraries, "loaded"), (needed_libraries, "dynamic")]:
        for library in (name for file in files for name in libraries(file)):
            if library.startswith("libhexlume"):
                continue
            path = output_of("g++", f"-print-file-name={library}").strip()
            packages[package_of(str(Path(path).resolve()))] = linkage
    rows = [component(package, linkage, architecture=machine) for package, linkage in packages.items()]
    if any("bin" in Path(file).parts for file in files):
        rows += [component(package, "headers") for package in HEADERS]
    return rows


def windows_components(triplet):
    processor = "x86-64" if triplet.startswith("x86_64") else "i686"
    return [component(f"g++-mingw-w64-{processor}-win32", "static"),
            component(f"mingw-w64-{'x86-64' if processor == 'x86-64' else 'i686'}-dev", "static")] + [
                component(package, "headers") for package in HEADERS]


def viewer_components(libraries):
    rows = [component("emscripten", "static"), component("libfast-float-dev", "headers"),
            component("fonts-ipafont-gothic", "data")]
    # The words before the numbers of a version in the libraries' headers.
    headers = {"freetype": ("freetype2/freetype/freetype.h", ["FREETYPE_MAJOR", "FREETYPE_MINOR", "FREETYPE_PATCH"]),
               "pixman": ("pixman-1/pixman-version.h",
                          ["PIXMAN_VERSION_MAJOR", "PIXMAN_VERSION_MINOR", "PIXMAN_VERSION_MICRO"])}
    for name, (header, words) in headers.items():
        text = (Path(libraries) / "include" / header).read_text()
        version = ".".join(re.search(rf"#define\s+{word}\s+(\d+)", text).group(1) for word in words)
        rows.append({"type": "library", "bom-ref": f"{name}@{version}", "name": name, "version": version,
                     "purl": f"pkg:generic/{name}@{version}", "properties": [{"name": "hexlume:linkage", "value": "static"}]})
    packages = json.loads((ROOT / "web/package-lock.json").read_text())["packages"]
    # Those of the page itself. Programs that only build or test it aren't in its file.
    for path, package in packages.items():
        if path and not package.get("dev"):
            name = path.rsplit("node_modules/", 1)[1]
            purl = f"pkg:npm/{quote(name)}@{package['version']}"
            rows.append({"type": "library", "bom-ref": purl, "name": name, "version": package["version"], "purl": purl})
    return rows


def bill(name, kind, rows):
    rows = sorted(rows, key=lambda row: row["bom-ref"])
    subject = {"type": kind, "bom-ref": name, "name": name, "version": version_of_project(),
               "licenses": [{"license": {"id": "MIT"}}]}
    bom = {"bomFormat": "CycloneDX", "specVersion": "1.5", "version": 1,
           "metadata": {"lifecycles": [{"phase": "build"}], "component": subject}, "components": rows,
           "dependencies": [{"ref": name, "dependsOn": [row["bom-ref"] for row in rows]}]}
    bom["serialNumber"] = "urn:uuid:" + str(uuid.uuid5(uuid.NAMESPACE_URL, json.dumps(bom, sort_keys=True)))
    return bom


def main():
    kind, output, arguments = sys.argv[1], Path(sys.argv[2]), sys.argv[3:]
    if kind == "debian":
        bom = bill(arguments[0], "library" if arguments[0].startswith("lib") else "application", debian_components(arguments[1:]))
    elif kind == "windows":
        bom = bill(arguments[0], "application", windows_components(arguments[1]))
    elif kind == "viewer":
        bom = bill("hexlume-viewer", "application", viewer_components(arguments[0]))
    else:
        sys.exit(__doc__)
    output.parent.mkdir(parents=True, exist_ok=True)
    output.write_text(json.dumps(bom, indent=2) + "\n")


if len(sys.argv) < 4:
    sys.exit(__doc__)
main()
