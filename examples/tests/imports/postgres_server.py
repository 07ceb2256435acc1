"""A PostgreSQL server for a test: on a socket of its own, with data of its own, and gone afterwards."""

import glob
import json
import os
import pwd
import shutil
import subprocess
import tempfile


def programs():
    """The folder with the server's programs; None if there is none."""
    found = sorted(glob.glob("/usr/lib/postgresql/*/bin/initdb"))
    beside = shutil.which("initdb")
    return os.path.dirname(found[-1]) if found else os.path.dirname(beside) if beside else None


def is_installed():
    return programs() is not None and shutil.which("psql") is not None


def unprivileged():
    """The server refuses to run as root; then it runs as the user that the package makes."""
    if os.geteuid() != 0:
        return {}
    user = pwd.getpwnam("postgres")
    return {"user": user.pw_uid, "group": user.pw_gid, "extra_groups": []}


def token(value, kind):
    if value is None:
        return None
    if kind.startswith(("timestamp", "date")):
        return "t:" + (value.replace("T", " ") + " 00:00:00")[:19]
    return "s:" + value if isinstance(value, str) else "n:" + repr(value)


class Server:
    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="pg")
        os.chmod(self.folder, 0o755)
        if os.geteuid() == 0:
            os.chown(self.folder, unprivileged()["user"], -1)
        self.data = os.path.join(self.folder, "data")
        self.psql = ["psql", "-X", "-q", "-v", "ON_ERROR_STOP=1", "-h", self.folder, "-U", "tester", "-d", "postgres"]
        try:
            self.control("initdb", "-D", self.data, "-U", "tester", "-A", "trust", "-E", "UTF8", "--locale=C.UTF-8",
                         "--no-sync")
            options = f"-k {self.folder} -c listen_addresses= -c fsync=off"
            self.control("pg_ctl", "-D", self.data, "-w", "-l", self.folder + "/log", "-o", options, "start")
        except BaseException:
            shutil.rmtree(self.folder)
            raise
        return self

    def __exit__(self, *_):
        self.control("pg_ctl", "-D", self.data, "-w", "-m", "immediate", "stop")
        shutil.rmtree(self.folder)

    def control(self, program, *arguments):
        done = subprocess.run([os.path.join(programs(), program), *arguments], cwd=self.folder, check=False,
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                              **unprivileged())
        if done.returncode != 0:
            raise RuntimeError(f"{program}: {done.stderr.decode()}")

    def ask(self, script, folder="/"):
        return subprocess.run(self.psql + ["-At"], input=script.encode(), capture_output=True, cwd=folder, check=False)

    def cells(self, job):
        """Runs a job's statement and gives the cells of the table that it makes."""
        name = job.table_name("CREATE TABLE ")
        done = self.ask(
            f'SET client_min_messages = warning; DROP TABLE IF EXISTS "{name}";\n{job.statement}\n'
            "SELECT jsonb_agg(jsonb_build_array(column_name, data_type) ORDER BY ordinal_position) "
            f"FROM information_schema.columns WHERE table_name = '{name}' AND table_schema = 'public';\n"
            f'SET timezone = \'UTC\'; SELECT row_to_json("the row") FROM "{name}" "the row";', job.folder)
        if done.returncode != 0:
            return {"error": done.stderr.decode()}
        columns, *rows = [json.loads(line, object_pairs_hook=lambda pairs: [value for _, value in pairs])
                          for line in done.stdout.decode().splitlines()]
        kinds = [kind for _, kind in columns]
        return {"names": [column for column, _ in columns],
                "rows": [[token(value, kind) for value, kind in zip(row, kinds)] for row in rows]}
