# Packages from the components of their names: MPI brings many libraries, which few users have, and the Python module
# needs no window.
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL quorvane)
if(TARGET quorvane-study-mpi)
  list(APPEND CPACK_COMPONENTS_ALL quorvane-mpi)
endif()
if(TARGET quorvane_native)
  list(APPEND CPACK_COMPONENTS_ALL python3-quorvane)
endif()
set(CPACK_PACKAGE_NAME quorvane)
# The project has no address that can be reached.
set(CPACK_PACKAGE_CONTACT "The Quorvane authors")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)

# The first line of each description is its summary; one for both would be put before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_QUORVANE_PACKAGE_NAME quorvane)
set(CPACK_DEBIAN_QUORVANE_DESCRIPTION
"experiment with stochastic lattice models
Quorvane is a desktop laboratory for stochastic lattice models of statistical
physics, chemistry and ecology. A periodic lattice of up to 256 by 256 sites
holds up to ten pixel types, and up to fifty rules change it: irreversible and
reversible flips, swaps with a neighbour, pair energies, and facilitation by
neighbours. The lattice can be painted on while it runs, and runs are
reproducible to the last bit.
.
The package also contains quorvane-batch, which makes the same runs without a
window and writes documents, populations, pictures and the frames of films,
quorvane-study, which makes many runs over a grid of parameters and tabulates
them, and a library of example documents.")
# Qt's support for Wayland is a separate package, ffmpeg makes films from frames, and gnuplot figures of studies.
set(CPACK_DEBIAN_QUORVANE_PACKAGE_RECOMMENDS "qt6-wayland, shared-mime-info")
set(CPACK_DEBIAN_QUORVANE_PACKAGE_SUGGESTS "ffmpeg, gnuplot-nox, quorvane-mpi, python3-quorvane")

set(CPACK_DEBIAN_QUORVANE-MPI_PACKAGE_NAME quorvane-mpi)
set(CPACK_DEBIAN_QUORVANE-MPI_DESCRIPTION
"studies of stochastic lattice models over MPI
quorvane-study-mpi makes the runs of a study, a grid of parameters with many
runs of each point, with the ranks of an MPI job on one or many machines. The
results are those of quorvane-study, which tabulates them.")
# The same version, since both write the same files.
set(CPACK_DEBIAN_QUORVANE-MPI_PACKAGE_DEPENDS "quorvane (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_QUORVANE-MPI_PACKAGE_RECOMMENDS mpi-default-bin)

set(CPACK_DEBIAN_PYTHON3-QUORVANE_PACKAGE_NAME python3-quorvane)
set(CPACK_DEBIAN_PYTHON3-QUORVANE_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON3-QUORVANE_DESCRIPTION
"stochastic lattice models in Python
The module quorvane opens, runs, measures and saves the stochastic lattice
models of Quorvane from Python. Lattices are arrays for NumPy, and runs give
the same bits as the application and quorvane-batch.")
# The module is for one minor version of Python.
string(REGEX REPLACE "^3\\." "" minor "${QUORVANE_PYTHON_VERSION}")
math(EXPR next_minor "${minor} + 1")
set(CPACK_DEBIAN_PYTHON3-QUORVANE_PACKAGE_DEPENDS
  "python3 (>= ${QUORVANE_PYTHON_VERSION}), python3 (<< 3.${next_minor}), python3-numpy")
# Example documents, and studies to be read.
set(CPACK_DEBIAN_PYTHON3-QUORVANE_PACKAGE_CONTROL_EXTRA
  "${CMAKE_CURRENT_SOURCE_DIR}/debian/python/postinst;${CMAKE_CURRENT_SOURCE_DIR}/debian/python/prerm")
set(CPACK_DEBIAN_PYTHON3-QUORVANE_PACKAGE_RECOMMENDS "quorvane")
set(CPACK_DEBIAN_PYTHON3-QUORVANE_PACKAGE_SUGGESTS "python3-matplotlib, python3-pandas")
include(CPack)
