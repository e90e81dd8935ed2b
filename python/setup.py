"""Has CMake build the extension with both libraries in it, and packs what that takes into source distributions."""

import pathlib
import re
import shutil
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext
from setuptools.command.sdist import sdist

HERE = pathlib.Path(__file__).resolve().parent
# The sources of the libraries: those of a source distribution, or the tree that this folder is part of.
NATIVE = HERE / "native" if (HERE / "native").exists() else HERE.parent
PARTS = ["CMakeLists.txt", "LICENSE", "cmake", "include", "src", "recording", "python/CMakeLists.txt", "python/src"]
OPTIONS = {
    "CMAKE_BUILD_TYPE": "Release",
    "BUILD_SHARED_LIBS": "OFF",
    "AST_LTO": "ON",
    "AST_BUILD_RECORDING": "ON",
    "AST_BUILD_PYTHON": "ON",
    "AST_BUILD_TOOLS": "OFF",
    "AST_BUILD_TESTS": "OFF",
    "AST_BUILD_BENCH": "OFF",
    "AST_BUILD_EXAMPLES": "OFF",
    "AST_INSTALL": "OFF",
    "Python3_EXECUTABLE": sys.executable,
}


def version():
    return re.search(r"project\(ast VERSION ([0-9.]+)", (NATIVE / "CMakeLists.txt").read_text()).group(1)


class BuildByCMake(build_ext):
    def build_extension(self, extension):
        built = pathlib.Path(self.build_temp).resolve()
        target = pathlib.Path(self.get_ext_fullpath(extension.name))
        options = [f"-D{name}={value}" for name, value in OPTIONS.items()]
        generator = ["-G", "Ninja"] if shutil.which("ninja") else []
        subprocess.run(["cmake", "-S", NATIVE, "-B", built, *generator, *options], check=True)
        subprocess.run(["cmake", "--build", built, "--target", "python_package", "--parallel", "2"], check=True)
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(built / "python" / "libast" / "_libast.abi3.so", target)


class SourcesOfAll(sdist):
    def make_release_tree(self, base_dir, files):
        super().make_release_tree(base_dir, files)
        for part in PARTS:
            target = pathlib.Path(base_dir, "native", part)
            target.parent.mkdir(parents=True, exist_ok=True)
            copy = shutil.copytree if (NATIVE / part).is_dir() else shutil.copy
            copy(NATIVE / part, target)


setup(
    version=version(),
    ext_modules=[Extension("libast._libast", [], py_limited_api=True)],
    cmdclass={"build_ext": BuildByCMake, "sdist": SourcesOfAll},
    options={"bdist_wheel": {"py_limited_api": "cp39"}},
)
