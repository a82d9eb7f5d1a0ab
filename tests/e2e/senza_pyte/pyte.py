"""Stands in for pyte when this folder leads PYTHONPATH: importing it fails as
on a machine without the module (see salto_visibile.py)."""

raise ImportError("No module named 'pyte' (hidden on purpose by tests/e2e/senza_pyte)")
