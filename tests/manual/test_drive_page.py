"""docs/drive.md: its conversation is what the program answers, and it names all that there is."""
import json
import re

from manual import ManualTest, blocks, fits, read

PAGE = "docs/drive.md"


class DrivePage(ManualTest):
    def converse(self, requests):
        done = self.run_program("drive", "--viewport", "40", input="\n".join(requests).encode())
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return done.stdout.decode().splitlines()

    def first_column(self, heading):
        section = read(PAGE).split(f"## {heading}\n")[1].split("\n## ")[0]
        return re.findall(r"^\| `([a-z_]+)` \|", section, re.MULTILINE)

    def test_conversation_is_as_printed(self):
        (text,) = blocks(PAGE, "drive")
        turns = re.findall(r"^> (.*)\n< (.*)\n", text, re.MULTILINE)
        self.assertEqual(2 * len(turns), len(text.splitlines()))
        answers = self.converse(request for request, _ in turns)
        self.assertEqual(len(answers), len(turns))
        for (request, printed), answer in zip(turns, answers):
            if not fits(printed, answer):
                self.assertEqual(answer, printed, request)

    def test_every_request_is_there(self):
        known = re.search(r"there are ([a-z, ]+)\.", self.output("help", "drive")).group(1)
        self.assertEqual(self.first_column("Requests"), known.split(", "))

    def test_every_code_is_there(self):
        codes = re.findall(r'return "([a-z_]+)";', read("drive/driver.cpp"))
        self.assertEqual(self.first_column("Refusals"), list(dict.fromkeys(codes)))

    def test_every_field_of_an_answer_is_there(self):
        requests = ['{"do":"launch"}', '{"do":"notifications"}']
        for page in self.document("pages"):
            requests.append(json.dumps({"do": "open", "page": page["class"]}))
        requests += ['{"do":"open","page":"ProfilesListController"}', '{"do":"bar"}',
                     '{"do":"press","button":"Save"}', '{"do":"alerts"}', '{"do":"pick","row":999}']
        fields = set()
        for answer in self.converse(requests):
            json.loads(answer, object_pairs_hook=lambda pairs: fields.update(dict(pairs)))
        self.assertGreater(len(fields), 30)
        for field in sorted(fields - {"ok"}):
            self.assertRegex(read(PAGE), f'`{field}`|"{field}":', field)
