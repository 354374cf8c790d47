"""Builds the module for pip with CMake."""

import re
import shutil
import subprocess
import sys
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

PROJECT = Path(__file__).resolve().parent.parent


class CMakeBuild(build_ext):
    def build_extension(self, extension):
        build = Path(self.build_temp).resolve()
        subprocess.run(["cmake", "-S", PROJECT, "-B", build, "-DCMAKE_BUILD_TYPE=Release", "-DQUORVANE_APP=OFF",
                        "-DQUORVANE_TESTS=OFF", f"-DPython_EXECUTABLE={sys.executable}"], check=True)
        subprocess.run(["cmake", "--build", build, "--target", "quorvane_native", "--parallel"], check=True)
        built, = (build / "python" / "quorvane").glob("_native*")
        target = Path(self.get_ext_fullpath(extension.name))
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(built, target)


setup(
    version=re.search(r"project\(Quorvane VERSION ([0-9.]+)", (PROJECT / "CMakeLists.txt").read_text())[1],
    packages=["quorvane"],
    package_data={"quorvane": ["*.pyi", "py.typed"]},
    ext_modules=[Extension("quorvane._native", sources=[])],
    cmdclass={"build_ext": CMakeBuild},
)
