//! The crate `plist` reads and writes binary property lists; the way between the objects of an
//! archive and a flat dictionary is a walk over its values. benchmarks/peers/codec.h is the contract.
use plist::{Dictionary, Uid, Value};
use std::cell::RefCell;
use std::collections::HashMap;
use std::hint::black_box;

#[derive(PartialEq, Debug, Clone)]
enum Scalar {
    Int(i64),
    Real(f64),
    Text(String),
}

type Flat = HashMap<String, Scalar>;

thread_local! {
    static PROFILE: RefCell<Flat> = RefCell::new(Flat::new());
}

fn decode(bytes: &[u8]) -> Option<Flat> {
    let frame = Value::from_reader(std::io::Cursor::new(bytes)).ok()?;
    let frame = frame.as_dictionary()?;
    let objects = frame.get("$objects")?.as_array()?;
    let at = |u: &Value| objects.get(u.as_uid()?.get() as usize);
    let root = at(frame.get("$top")?.as_dictionary()?.get("root")?)?.as_dictionary()?;
    let keys = root.get("NS.keys")?.as_array()?;
    let values = root.get("NS.objects")?.as_array()?;
    let mut flat = Flat::with_capacity(keys.len());
    for (key, value) in keys.iter().zip(values) {
        let value = match at(value)? {
            Value::Integer(i) => Scalar::Int(i.as_signed()?),
            Value::Real(r) => Scalar::Real(*r),
            Value::String(s) => Scalar::Text(s.clone()),
            _ => return None,
        };
        flat.insert(at(key)?.as_string()?.to_owned(), value);
    }
    Some(flat)
}

fn uid(n: usize) -> Value {
    Value::Uid(Uid::new(n as u64))
}

fn dictionary<const N: usize>(entries: [(&str, Value); N]) -> Value {
    let mut made = Dictionary::new();
    for (key, value) in entries {
        made.insert(key.into(), value);
    }
    Value::Dictionary(made)
}

fn encode(flat: &Flat) -> Vec<u8> {
    let mut objects = vec![Value::String("$null".into()), Value::Boolean(false)];
    let mut values = Vec::with_capacity(flat.len());
    let mut keys = Vec::with_capacity(flat.len());
    for key in flat.keys() {
        keys.push(uid(objects.len()));
        objects.push(Value::String(key.clone()));
    }
    let first = objects.len();
    for value in flat.values() {
        let value = match value {
            Scalar::Int(i) => Value::Integer((*i).into()),
            Scalar::Real(r) => Value::Real(*r),
            Scalar::Text(s) => Value::String(s.clone()),
        };
        let at = objects[first..].iter().position(|o| *o == value).map(|n| first + n);
        values.push(uid(at.unwrap_or(objects.len())));
        if at.is_none() {
            objects.push(value);
        }
    }
    objects[1] = dictionary([
        ("NS.keys", Value::Array(keys)),
        ("NS.objects", Value::Array(values)),
        ("$class", uid(objects.len())),
    ]);
    let names = ["NSMutableDictionary", "NSDictionary", "NSObject"];
    objects.push(dictionary([
        ("$classname", Value::String(names[0].into())),
        ("$classes", Value::Array(names.map(|s| Value::String(s.into())).to_vec())),
    ]));
    let mut bytes = Vec::new();
    let frame = dictionary([
        ("$version", Value::Integer(100000.into())),
        ("$archiver", Value::String("NSKeyedArchiver".into())),
        ("$top", dictionary([("root", uid(1))])),
        ("$objects", Value::Array(objects)),
    ]);
    frame.to_writer_binary(&mut bytes).unwrap();
    bytes
}

unsafe fn slice<'a>(bytes: *const u8, size: usize) -> &'a [u8] {
    std::slice::from_raw_parts(bytes, size)
}

/// # Safety
/// `size` bytes are readable.
#[no_mangle]
pub unsafe extern "C" fn rustDecode(bytes: *const u8, size: usize) -> usize {
    black_box(decode(slice(bytes, size))).map_or(0, |flat| flat.len())
}

/// # Safety
/// `size` bytes are readable.
#[no_mangle]
pub unsafe extern "C" fn rustPrepare(bytes: *const u8, size: usize) {
    let decoded = decode(slice(bytes, size)).expect("an archive");
    PROFILE.with(|profile| *profile.borrow_mut() = decoded);
}

#[no_mangle]
pub extern "C" fn rustEncode() -> usize {
    PROFILE.with(|profile| black_box(encode(&profile.borrow())).len())
}
