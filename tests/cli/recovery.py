"""What the tests of what is kept share: a place for it, and ways to damage the settings."""
from keyed_archive import archive
from program import DOCUMENTS, DOMAIN, ProgramTest

PROFILE = f"{DOCUMENTS}/profile_20.qvx"


class RecoveryTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.state = self.scratch / "state"
        self.env["XDG_STATE_HOME"] = str(self.state)

    def befores(self):
        return [each["before"] for each in self.document("snapshot", "list")]

    def write_profile(self, values):
        self.write(PROFILE, archive({"profilepercentage": "20"} | values))

    def typed_domain(self):
        return {key: (type(value), value) for key, value in self.domain().items()}

    def damage(self):
        self.write(DOMAIN, b"garbage")
