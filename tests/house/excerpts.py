"""The job of excerpts is to hold the C++ of a document to the sources: excerpts.py DOCUMENT. A block of code that follows a
name in backticks in the paragraph before it stands in that file, whatever its indentation."""
import re
import sys
from pathlib import Path


def lines(text):
    return [line.strip() for line in text.splitlines() if line.strip()]


failed = 0
document = Path(sys.argv[1]).read_text()
blocks = re.findall(r"`([\w/.]+\.(?:cpp|h))`[^`]*?\n+```cpp\n(.*?)```", document, re.DOTALL)
for name, block in blocks:
    wanted, source = lines(block), lines((Path(__file__).parents[2] / name).read_text())
    if not any(source[i:i + len(wanted)] == wanted for i in range(len(source))):
        failed += 1
        print(f"{sys.argv[1]}: not in {name}:\n{block}")
print(f"{len(blocks) - failed} of {document.count('```cpp')} excerpts found")
sys.exit(failed > 0 or len(blocks) != document.count("```cpp"))
