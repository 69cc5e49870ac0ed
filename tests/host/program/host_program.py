# SPDX-License-Identifier: MIT
"""What the tests of the command line expect of every run of the program."""


def output_of(test, done, code=0):
    """The output of a run that ended with this code, or a failed run's line of standard error."""
    test.assertEqual(done.returncode, code, done.stderr)
    if code == 0:
        return done.stdout
    test.assertEqual(done.stdout, "")
    test.assertRegex(done.stderr, r"\Azorvantine: [^\n]+\n\Z")
    return done.stderr
