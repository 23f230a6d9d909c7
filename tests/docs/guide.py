"""Holds the README and the guide to what exists: a block of C++, or of CMake in the guide, stands in an example, line
for line but for its indentation; pictures and files that are linked exist; the index leads to every page. Usage: guide.py ROOT"""
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
index = root / "docs/guide/README.md"
pages = [root / "README.md", *sorted((root / "docs/guide").glob("*.md"))]


def bare(text):
    return "\n".join(["", *filter(None, map(str.strip, text.splitlines())), ""])


examples = [bare(source.read_text()) for kind in ("*.cpp", "*.h", "*/CMakeLists.txt") for source in (root / "examples").rglob(kind)]
faults, blocks = [], 0
for page in pages:
    text = page.read_text()
    kinds = "cpp" if page.parent == root else "cpp|cmake"
    for block in re.findall(rf"^```(?:{kinds})\n(.*?)^```$", text, re.DOTALL | re.MULTILINE):
        blocks += 1
        if not any(bare(block) in example for example in examples):
            faults.append(f"{page}: in no example:\n{block}")
    prose = re.sub(r"^```.*?^```$", "", text, flags=re.DOTALL | re.MULTILINE)
    for link in re.findall(r"\]\((?!https?:)([^)#\s]+)", prose):
        if not (page.parent / link).exists():
            faults.append(f"{page}: no such file: {link}")
    if page.parent == index.parent and page != index and f"({page.name})" not in index.read_text():
        faults.append(f"{index}: does not lead to {page.name}")
if blocks < 20:
    faults.append(f"only {blocks} blocks of C++ found in {len(pages)} pages")
sys.exit("\n".join(faults) or 0)
