#!/usr/bin/env python3
"""Runs the Conan recipe as `conan create` would, as far as the recipe's own lines can be right or
wrong: copies what it exports, sets its version, configures, builds and installs with CMake.

    conan_create.py RECIPE FOLDER VERSION [OPTION...]   options that are set to True
"""

import pathlib
import runpy
import shutil
import subprocess
import sys
import types


class ConanFile:
    def __init__(self, recipe_folder, source_folder, package_folder, options):
        self.recipe_folder, self.source_folder = recipe_folder, source_folder
        self.package_folder = package_folder
        self.options = types.SimpleNamespace(**{**self.default_options, **options})
        self.cpp_info = types.SimpleNamespace(properties={})
        self.cpp_info.set_property = self.cpp_info.properties.__setitem__


class CMakeToolchain:
    def __init__(self, recipe):
        self.recipe, self.cache_variables = recipe, {}

    def generate(self):
        self.recipe.cache_variables = self.cache_variables


class CMake:
    def __init__(self, recipe):
        self.recipe, self.build_folder = recipe, recipe.source_folder / "build"

    def configure(self):
        variables = {"CMAKE_BUILD_TYPE": "Debug", "CMAKE_INSTALL_LIBDIR": "lib",
                     **self.recipe.cache_variables}
        self.cmake("-G", "Ninja", "-S", self.recipe.source_folder, "-B", self.build_folder,
                   *[f"-D{name}={value}" for name, value in variables.items()])

    def build(self):
        self.cmake("--build", self.build_folder)

    def install(self):
        self.cmake("--install", self.build_folder, "--prefix", self.recipe.package_folder)

    @staticmethod
    def cmake(*arguments):
        subprocess.run(["cmake", *arguments], check=True, stdout=subprocess.DEVNULL)


def stand_in(name, **members):
    sys.modules[name] = types.ModuleType(name)
    vars(sys.modules[name]).update(members)


def copy(_, pattern, source, target):
    for file in pathlib.Path(source).glob(pattern):
        copied = pathlib.Path(target) / file.relative_to(source)
        copied.parent.mkdir(parents=True, exist_ok=True)
        if file.is_dir():
            shutil.copytree(file, copied, dirs_exist_ok=True)
        else:
            shutil.copy2(file, copied)


def export(patterns, source, target):
    target.mkdir(parents=True, exist_ok=True)
    for pattern in [patterns] if isinstance(patterns, str) else patterns:
        copy(None, pattern, source, target)
    return target


def main():
    recipe_file, folder, version = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
    stand_in("conan", ConanFile=ConanFile)
    stand_in("conan.errors", ConanInvalidConfiguration=SystemExit)
    stand_in("conan.tools")
    stand_in("conan.tools.build", check_min_cppstd=lambda recipe, standard: None)
    stand_in("conan.tools.cmake", CMake=CMake, CMakeToolchain=CMakeToolchain,
             cmake_layout=lambda recipe: None)
    stand_in("conan.tools.files", copy=copy, load=lambda recipe, file: pathlib.Path(file).read_text())
    recipe_class = runpy.run_path(str(recipe_file))["TextFormatDetection"]
    tree = recipe_file.parent
    source = export(recipe_class.exports_sources, tree, folder / "source")
    options = dict.fromkeys(sys.argv[4:], True)
    recipe = recipe_class(tree, source, folder / "prefix", options)
    recipe.set_version()
    if recipe.version != version:
        sys.exit(f"the recipe's version is {recipe.version}")
    recipe.recipe_folder = export(recipe_class.exports, tree, folder / "export")
    recipe.validate()
    recipe.validate_build()
    recipe.layout()
    recipe.generate()
    recipe.build()
    recipe.package()
    recipe.package_info()
    for library in recipe.cpp_info.libs:
        if not (recipe.package_folder / f"lib/lib{library}.a").exists():
            sys.exit(f"the recipe names a library that it does not install: {library}")


if __name__ == "__main__":
    main()
