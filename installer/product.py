"""The names and numbers by which the system knows the product."""

import uuid

NAME = "Kestrix Log Viewer"
MAKER = "Veldrane"
FOLDER = ("Veldrane", "Kestrix")  # below the folders of programs and of data

# The line of all versions: an installer finds by it what it replaces.
UPGRADE_CODE = "4D0A2C57-7F1B-4B0E-9C56-4E7E0B6C2B11"

_NAMES = uuid.UUID(UPGRADE_CODE)


def identifier(*words):
    """The identifier of something of the product; the same words have the same one, on every machine."""
    return str(uuid.uuid5(_NAMES, "\n".join(words))).upper()


def product_code(version):
    return identifier("product", version)
