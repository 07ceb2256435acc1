"""Builds the package with the library of this checkout inside, by CMake."""
import pathlib
import re
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
VERSION = re.search(r"^project\(text_format_detection VERSION ([0-9.]+)", (ROOT / "CMakeLists.txt").read_text(),
                    re.MULTILINE).group(1)


class CMakeBuild(build_ext):
    """Has CMake make the module where setuptools expects it."""

    def build_extension(self, ext):
        target = pathlib.Path(self.get_ext_fullpath(ext.name)).resolve()
        build = pathlib.Path(self.build_temp).resolve()
        subprocess.run(["cmake", "-S", HERE, "-B", build, "-DCMAKE_BUILD_TYPE=Release",
                        f"-DCMAKE_LIBRARY_OUTPUT_DIRECTORY={target.parent}",
                        f"-DPYTHON_EXECUTABLE={sys.executable}"], check=True)
        subprocess.run(["cmake", "--build", build, "--parallel"], check=True)


setup(
    name="text_format_detection",
    version=VERSION,
    description="Works out how a tabular text is laid out before it is imported",
    python_requires=">=3.9",
    packages=["text_format_detection"],
    package_data={"text_format_detection": ["py.typed", "*.pyi"]},
    ext_modules=[Extension("text_format_detection._native", [])],
    cmdclass={"build_ext": CMakeBuild},
    zip_safe=False,
)
