#!/usr/bin/env python3
"""Fails when a document links to a file that is not there. Argument: the root of the tree."""

import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
documents = [*root.glob("*.md"), *root.glob("docs/**/*.md"), *root.glob("examples/**/*.md")]
if not documents:
    sys.exit(f"no documents below {root}")

broken = []
for document in documents:
    text = re.sub(r"```.*?```", "", document.read_text(encoding="utf-8"), flags=re.DOTALL)
    for link in re.findall(r"\]\(([^)#]+)", text):
        if "://" not in link and not (document.parent / link).exists():
            broken.append(f"{document.relative_to(root)} links to {link}, which is not there")
sys.exit("\n".join(broken) or 0)
